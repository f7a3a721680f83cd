/// A source as the compiler reads it: its tree and its text.
#include "tests/mutants/Source.h"

namespace panotra::mutants {

std::string text(CXString string)
{
    const char* const characters = clang_getCString(string);
    std::string result = characters != nullptr ? characters : "";
    clang_disposeString(string);
    return result;
}

Place placeOf(CXCursor cursor)
{
    const CXSourceRange range = clang_getCursorExtent(cursor);
    CXFile file = nullptr;
    Place place;
    clang_getExpansionLocation(clang_getRangeStart(range), &file, &place.line, nullptr, &place.begin);
    clang_getExpansionLocation(clang_getRangeEnd(range), nullptr, nullptr, nullptr, &place.end);
    if (file != nullptr)
        place.file = text(clang_getFileName(file));
    return place;
}

std::vector<CXCursor> childrenOf(CXCursor cursor)
{
    std::vector<CXCursor> children;
    clang_visitChildren(
        cursor,
        [](CXCursor child, CXCursor, CXClientData data) {
            static_cast<std::vector<CXCursor>*>(data)->push_back(child);
            return CXChildVisit_Continue;
        },
        &children);
    return children;
}

std::vector<CXCursor> expressionsIn(CXCursor cursor)
{
    std::vector<CXCursor> expressions;
    for (const CXCursor child : childrenOf(cursor)) {
        if (clang_isExpression(clang_getCursorKind(child)) != 0)
            expressions.push_back(child);
    }
    return expressions;
}

CXCursor bare(CXCursor cursor)
{
    while (true) {
        const CXCursorKind kind = clang_getCursorKind(cursor);
        const auto inner = expressionsIn(cursor);
        // The compiler makes a != b of !(a == b); that one begins at the sign, behind a.
        const bool isMade
            = kind == CXCursor_UnaryOperator && inner.size() == 1 && placeOf(inner[0]).begin < placeOf(cursor).begin;
        if ((kind != CXCursor_UnexposedExpr && kind != CXCursor_ParenExpr && !isMade) || inner.size() != 1)
            return cursor;
        cursor = inner.front();
    }
}

std::string spelling(CXCursor cursor)
{
    return text(clang_getCursorSpelling(cursor));
}

std::string qualifiedName(CXCursor cursor)
{
    std::string name = spelling(cursor);
    for (CXCursor parent = clang_getCursorSemanticParent(cursor);; parent = clang_getCursorSemanticParent(parent)) {
        switch (clang_getCursorKind(parent)) {
        case CXCursor_ClassDecl:
        case CXCursor_StructDecl:
        case CXCursor_ClassTemplate:
        case CXCursor_ClassTemplatePartialSpecialization:
            name.insert(0, spelling(parent) + "::");
            break;
        default:
            return name;
        }
    }
}

namespace {

bool isHandle(CXCursor declaration)
{
    if (spelling(declaration) == "NSObject")
        return true;
    for (const CXCursor child : childrenOf(declaration)) {
        if (clang_getCursorKind(child) == CXCursor_CXXBaseSpecifier
            && isHandle(clang_getTypeDeclaration(clang_getCanonicalType(clang_getCursorType(child)))))
            return true;
    }
    return false;
}

} // namespace

bool canBeNull(CXType type)
{
    const CXType canonical = clang_getCanonicalType(type);
    if (canonical.kind == CXType_Pointer)
        return clang_getPointeeType(canonical).kind != CXType_FunctionProto;
    return canonical.kind == CXType_Record && isHandle(clang_getTypeDeclaration(canonical));
}

void EditedText::enclose(unsigned begin, std::string before, unsigned end, std::string after)
{
    m_edits[begin].opening += before;
    m_edits[end].closing.insert(0, after);
}

void EditedText::replace(unsigned begin, unsigned end, std::string replacement)
{
    m_edits[begin].replacement = std::move(replacement);
    m_edits[begin].replaced = end - begin;
}

std::string EditedText::edited() const
{
    std::string result;
    unsigned done = 0;
    for (const auto& [at, edit] : m_edits) {
        result += part(done, at);
        result += edit.closing + edit.opening + edit.replacement;
        done = at + edit.replaced;
    }
    result += part(done, static_cast<unsigned>(m_original.size()));
    return result;
}

} // namespace panotra::mutants
