/// Plants mutants into one file: statements. Expressions are in PlanterExpressions.cpp.
#include "tests/mutants/Planter.h"

#include <algorithm>
#include <cctype>
#include <utility>

namespace panotra::mutants {

Planter::Planter(std::string file, std::string original, int first)
    : m_file(std::move(file))
    , m_text(std::move(original))
    , m_next(first)
{
}

std::string_view Planter::textOf(CXCursor cursor) const
{
    const Place place = placeOf(cursor);
    return m_text.part(place.begin, place.end);
}

std::string Planter::inOneLine(CXCursor cursor) const
{
    constexpr std::size_t longest = 70;
    std::string line;
    for (const char character : textOf(cursor)) {
        if (std::isspace(static_cast<unsigned char>(character)) == 0)
            line += character;
        else if (!line.empty() && line.back() != ' ')
            line += ' ';
    }
    if (line.size() > longest) {
        line.resize(longest);
        line += "...";
    }
    return line;
}

unsigned Planter::behindSemicolon(CXCursor cursor) const
{
    const auto found = m_text.original().find(';', placeOf(cursor).end);
    return static_cast<unsigned>(found) + 1;
}

bool Planter::startsWith(CXCursor cursor, std::string_view word) const
{
    return textOf(cursor).starts_with(word);
}

bool Planter::isHere(CXCursor cursor) const
{
    const Place place = placeOf(cursor);
    return place.end > place.begin && place.end <= m_text.original().size();
}

bool Planter::isNew(const Place& place, const char* kind)
{
    return place.end > place.begin && m_done.emplace(place.begin, place.end, kind).second;
}

bool Planter::isNew(CXCursor cursor, const char* kind)
{
    const Place place = placeOf(cursor);
    return isHere(cursor) && m_done.emplace(place.begin, place.end, kind).second;
}

int Planter::add(CXCursor cursor, const char* kind, const std::string& change)
{
    m_mutants.push_back({ m_next, m_file, placeOf(cursor).line, m_function, kind, change, m_isInConstexpr });
    return m_next++;
}

namespace {

bool endsWithReturn(CXCursor body)
{
    const auto statements = childrenOf(body);
    return !statements.empty() && clang_getCursorKind(statements.back()) == CXCursor_ReturnStmt;
}

bool isCall(CXCursor cursor)
{
    const CXCursor inner = bare(cursor);
    const std::string name = spelling(inner);
    return clang_getCursorKind(inner) == CXCursor_CallExpr && !name.starts_with("operator");
}

bool isConstantDeclaration(std::string_view declaration)
{
    for (const std::string_view word :
        { "constexpr ", "static constexpr ", "inline constexpr ", "constinit ", "static_assert" }) {
        if (declaration.starts_with(word))
            return true;
    }
    return false;
}

} // namespace

void Planter::plantInFunction(CXCursor function)
{
    m_function = qualifiedName(function);
    const auto children = childrenOf(function);
    const auto body = std::find_if(children.begin(), children.end(),
        [](CXCursor child) { return clang_getCursorKind(child) == CXCursor_CompoundStmt; });
    if (body == children.end())
        return;
    const std::string_view head = m_text.part(placeOf(function).begin, placeOf(*body).begin);
    m_isInConstexpr = head.find("constexpr") != head.npos || head.find("consteval") != head.npos;
    const auto statements = childrenOf(*body);
    m_lastStatement = statements.empty() ? 0 : placeOf(statements.back()).begin;
    const CXType result = clang_getCursorResultType(function);
    const CXCursorKind kind = clang_getCursorKind(function);
    const bool hasResult = result.kind != CXType_Void && kind != CXCursor_Constructor && kind != CXCursor_Destructor;
    m_mayDropReturn = !hasResult || endsWithReturn(*body);
    m_mayAnswerNothing = hasResult && result.kind != CXType_LValueReference && result.kind != CXType_RValueReference
        && clang_getCanonicalType(result).kind != CXType_Unexposed && head.find("auto ") == head.npos
        && head.find("decltype(auto)") == head.npos;
    if (kind == CXCursor_Constructor) {
        for (const CXCursor initializer : expressionsIn(function)) {
            if (placeOf(initializer).begin > placeOf(function).begin)
                expression(initializer);
        }
    }
    block(*body);
}

void Planter::functionBody(CXCursor cursor)
{
    const bool mayDropReturn = std::exchange(m_mayDropReturn, false);
    const bool mayAnswerNothing = std::exchange(m_mayAnswerNothing, false);
    for (const CXCursor child : childrenOf(cursor)) {
        if (clang_getCursorKind(child) == CXCursor_CompoundStmt) {
            const std::string_view body = textOf(child);
            m_mayDropReturn = body.find("return ") == body.npos;
            block(child);
        }
    }
    m_mayDropReturn = mayDropReturn;
    m_mayAnswerNothing = mayAnswerNothing;
}

void Planter::block(CXCursor cursor)
{
    std::vector<CXCursor> calls;
    const auto endRun = [&] {
        if (calls.size() > 1)
            run(calls);
        calls.clear();
    };
    for (const CXCursor child : childrenOf(cursor)) {
        if (isCall(child) && isHere(child)) {
            calls.push_back(child);
        } else {
            endRun();
        }
    }
    endRun();
    for (const CXCursor child : childrenOf(cursor))
        statement(child, false);
}

/// Calls that follow each other may change places with their neighbours.
void Planter::run(const std::vector<CXCursor>& calls)
{
    if (!isNew(calls.front(), "swap"))
        return;
    std::string swaps;
    for (std::size_t i = 0; i + 1 < calls.size(); ++i) {
        const bool isSame = textOf(calls[i]) == textOf(calls[i + 1]);
        const int number = isSame ? -1 : add(calls[i], "swap", inOneLine(calls[i]) + " <=> " + inOneLine(calls[i + 1]));
        swaps += (i == 0 ? "" : ", ") + std::to_string(number);
    }
    const std::string size = std::to_string(calls.size());
    m_text.enclose(placeOf(calls.front()).begin,
        "for (int place_ = 0; place_ < " + size + "; ++place_) switch (::mutants::order(place_, { " + swaps
            + " })) { case 0: ",
        behindSemicolon(calls.back()), " break; }");
    for (std::size_t i = 1; i < calls.size(); ++i)
        m_text.enclose(placeOf(calls[i]).begin, "break; case " + std::to_string(i) + ": ", placeOf(calls[i]).begin, "");
}

/// The body of an `if` or a loop.
void Planter::branch(CXCursor cursor)
{
    statement(cursor, true);
}

void Planter::statement(CXCursor cursor, bool isSole)
{
    const CXCursorKind kind = clang_getCursorKind(cursor);
    switch (kind) {
    case CXCursor_CompoundStmt:
        block(cursor);
        break;
    case CXCursor_DeclStmt:
        declaration(cursor);
        break;
    case CXCursor_IfStmt:
        ifStatement(cursor);
        break;
    case CXCursor_ForStmt:
    case CXCursor_CXXForRangeStmt:
    case CXCursor_WhileStmt:
    case CXCursor_DoStmt:
        loop(cursor);
        break;
    case CXCursor_SwitchStmt:
        for (const CXCursor child : childrenOf(cursor)) {
            if (clang_isExpression(clang_getCursorKind(child)) != 0)
                expression(child);
            else
                statement(child, false);
        }
        break;
    case CXCursor_CaseStmt:
    case CXCursor_DefaultStmt:
        statement(childrenOf(cursor).back(), true);
        break;
    case CXCursor_ReturnStmt:
        returnStatement(cursor, isSole);
        break;
    case CXCursor_BreakStmt:
    case CXCursor_ContinueStmt:
        wrapStatement(cursor, "return", isSole, "dropped");
        break;
    case CXCursor_CXXTryStmt:
    case CXCursor_CXXCatchStmt:
    case CXCursor_UnexposedStmt: // one with attributes
        for (const CXCursor child : childrenOf(cursor)) {
            if (clang_isStatement(clang_getCursorKind(child)) != 0)
                statement(child, false);
            else if (clang_isExpression(clang_getCursorKind(child)) != 0)
                simpleStatement(child, true);
        }
        break;
    default:
        if (clang_isExpression(kind) != 0)
            simpleStatement(cursor, isSole);
        break;
    }
}

/// A constant of a function that lives as long as the process may well be made by the compiler.
void Planter::declaration(CXCursor cursor)
{
    if (isConstantDeclaration(textOf(cursor)))
        return;
    const bool wasInConstexpr = std::exchange(m_isInConstexpr, m_isInConstexpr || startsWith(cursor, "static const "));
    for (const CXCursor child : childrenOf(cursor)) {
        if (clang_getCursorKind(child) != CXCursor_VarDecl && clang_getCursorKind(child) != CXCursor_UnexposedDecl)
            continue;
        unsigned name = 0;
        clang_getExpansionLocation(clang_getCursorLocation(child), nullptr, nullptr, nullptr, &name);
        for (const CXCursor initializer : expressionsIn(child)) {
            if (placeOf(initializer).begin >= name)
                expression(initializer);
        }
    }
    m_isInConstexpr = wasInConstexpr;
}

void Planter::ifStatement(CXCursor cursor)
{
    const bool isConstant = startsWith(cursor, "if constexpr");
    std::vector<CXCursor> branches;
    CXCursor declared = clang_getNullCursor();
    CXCursor tested = clang_getNullCursor();
    for (const CXCursor child : childrenOf(cursor)) {
        const CXCursorKind kind = clang_getCursorKind(child);
        if (kind == CXCursor_VarDecl)
            declared = child;
        else if (clang_isExpression(kind) != 0 && clang_Cursor_isNull(tested) != 0)
            tested = child;
        else if (kind == CXCursor_DeclStmt && clang_Cursor_isNull(tested) != 0)
            declaration(child);
        else
            branches.push_back(child);
    }
    if (clang_Cursor_isNull(declared) == 0) {
        if (isNew(declared, "condition")) {
            const int number = add(declared, "condition", inOneLine(declared) + " => negated");
            const unsigned end = placeOf(declared).end;
            m_text.enclose(end, "", end,
                "; ::mutants::is(" + std::to_string(number) + ") != static_cast<bool>(" + spelling(declared) + ")");
        }
        for (const CXCursor initializer : expressionsIn(declared))
            expression(initializer);
    } else if (!isConstant && clang_Cursor_isNull(tested) == 0) {
        condition(tested);
    }
    for (const CXCursor each : branches)
        branch(each);
}

/// A step is left alone: a loop that never ends tells little.
void Planter::loop(CXCursor cursor)
{
    auto children = childrenOf(cursor);
    std::sort(
        children.begin(), children.end(), [](CXCursor a, CXCursor b) { return placeOf(a).begin < placeOf(b).begin; });
    if (children.empty())
        return;
    const CXCursorKind kind = clang_getCursorKind(cursor);
    if (kind == CXCursor_DoStmt) {
        branch(children.front());
        condition(children.back());
        return;
    }
    const CXCursor body = children.back();
    children.pop_back();
    int semicolons = 0;
    unsigned at = placeOf(cursor).begin;
    for (const CXCursor child : children) {
        const std::string_view before = m_text.part(at, std::max(at, placeOf(child).begin));
        semicolons += static_cast<int>(std::count(before.begin(), before.end(), ';'));
        at = std::max(at, placeOf(child).end);
        const bool isExpression = clang_isExpression(clang_getCursorKind(child)) != 0;
        if (kind == CXCursor_WhileStmt && isExpression)
            condition(child);
        else if (kind == CXCursor_CXXForRangeStmt && isExpression)
            expression(child);
        else if (kind == CXCursor_ForStmt && clang_getCursorKind(child) == CXCursor_DeclStmt)
            declaration(child), at = std::max(at, placeOf(child).end),
                                semicolons += textOf(child).ends_with(';') ? 1 : 0;
        else if (kind == CXCursor_ForStmt && isExpression && semicolons == 1)
            condition(child);
    }
    branch(body);
}

void Planter::wrapStatement(CXCursor cursor, const char* kind, bool isSole, const std::string& change)
{
    if (!isNew(cursor, kind))
        return;
    const int number = add(cursor, kind, inOneLine(cursor) + " => " + change);
    const std::string question = "if (!::mutants::is(" + std::to_string(number) + ")) ";
    m_text.enclose(placeOf(cursor).begin, (isSole ? "{ " : "") + question, behindSemicolon(cursor), isSole ? " }" : "");
}

void Planter::returnStatement(CXCursor cursor, bool isSole)
{
    if (m_mayDropReturn && placeOf(cursor).begin != m_lastStatement)
        wrapStatement(cursor, "return", isSole, "dropped");
    const auto values = expressionsIn(cursor);
    if (values.empty())
        return;
    const CXCursorKind kind = clang_getCursorKind(bare(values.front()));
    const bool isLiteral = kind == CXCursor_CXXNullPtrLiteralExpr || kind == CXCursor_CXXBoolLiteralExpr
        || kind == CXCursor_IntegerLiteral || textOf(values.front()) == "{}" || textOf(values.front()) == "nullptr";
    if (m_mayAnswerNothing && !isLiteral && isNew(cursor, "result")) {
        const int number = add(cursor, "result", inOneLine(cursor) + " => nothing");
        m_text.enclose(placeOf(cursor).begin, "{ if (::mutants::is(" + std::to_string(number) + ")) return {}; ",
            behindSemicolon(cursor), " }");
    }
    expression(values.front());
}

void Planter::simpleStatement(CXCursor cursor, bool isSole)
{
    const CXCursor inner = bare(cursor);
    const CXCursorKind kind = clang_getCursorKind(inner);
    const bool isAssignment = kind == CXCursor_BinaryOperator || kind == CXCursor_CompoundAssignOperator
        || kind == CXCursor_UnaryOperator || spelling(inner) == "operator=";
    if (isAssignment)
        wrapStatement(cursor, "assignment", isSole, "dropped");
    else if (kind == CXCursor_CallExpr || kind == CXCursor_CXXDeleteExpr)
        wrapStatement(cursor, "call", isSole, "dropped");
    expression(cursor);
}

} // namespace panotra::mutants
