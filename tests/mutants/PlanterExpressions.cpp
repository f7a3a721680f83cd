/// Plants mutants into one file: expressions.
#include "tests/mutants/Planter.h"

#include <algorithm>
#include <array>

namespace panotra::mutants {
namespace {

/// What stands for an operator in Mutants.h, and what its mutants do.
struct Operation {
    CXBinaryOperatorKind kind;
    const char* sign;
    const char* function;
    const char* mutantKind;
    const char* other;
    const char* second; ///< null: it has one mutant
};

constexpr std::array operations {
    Operation { CXBinaryOperator_LT, "<", "less", "comparison", "<=", ">=" },
    Operation { CXBinaryOperator_LE, "<=", "lessOrEqual", "comparison", "<", ">" },
    Operation { CXBinaryOperator_GT, ">", "greater", "comparison", ">=", "<=" },
    Operation { CXBinaryOperator_GE, ">=", "greaterOrEqual", "comparison", ">", "<" },
    Operation { CXBinaryOperator_Add, "+", "add", "arithmetic", "-", nullptr },
    Operation { CXBinaryOperator_Sub, "-", "subtract", "arithmetic", "+", nullptr },
    Operation { CXBinaryOperator_Mul, "*", "multiply", "arithmetic", "/", nullptr },
    Operation { CXBinaryOperator_Div, "/", "divide", "arithmetic", "*", nullptr },
    Operation { CXBinaryOperator_Rem, "%", "remainder", "arithmetic", "*", nullptr },
    Operation { CXBinaryOperator_And, "&", "both", "arithmetic", "|", nullptr },
    Operation { CXBinaryOperator_Or, "|", "either", "arithmetic", "&", nullptr },
    Operation { CXBinaryOperator_AddAssign, "+=", "assignSum", "arithmetic", "-=", nullptr },
    Operation { CXBinaryOperator_SubAssign, "-=", "assignDifference", "arithmetic", "+=", nullptr },
    Operation { CXBinaryOperator_MulAssign, "*=", "assignProduct", "arithmetic", "/=", nullptr },
    Operation { CXBinaryOperator_DivAssign, "/=", "assignQuotient", "arithmetic", "*=", nullptr },
};

bool isPointer(CXCursor cursor)
{
    return clang_getCanonicalType(clang_getCursorType(cursor)).kind == CXType_Pointer;
}

bool isNumber(CXType type)
{
    const CXTypeKind kind = clang_getCanonicalType(type).kind;
    return (kind >= CXType_Bool && kind <= CXType_LongDouble) || kind == CXType_Enum;
}

std::string one(int number)
{
    return std::to_string(number) + ", ";
}

} // namespace

/// Whatever has no rule of its own has its parts mutated.
void Planter::expression(CXCursor cursor)
{
    switch (clang_getCursorKind(cursor)) {
    case CXCursor_BinaryOperator:
    case CXCursor_CompoundAssignOperator:
        binary(cursor);
        return;
    case CXCursor_UnaryOperator:
        unary(cursor);
        return;
    case CXCursor_ConditionalOperator: {
        const auto parts = expressionsIn(cursor);
        condition(parts.front());
        for (std::size_t i = 1; i < parts.size(); ++i)
            expression(parts[i]);
        return;
    }
    case CXCursor_CallExpr:
        call(cursor);
        return;
    case CXCursor_IntegerLiteral:
    case CXCursor_FloatingLiteral:
    case CXCursor_CXXBoolLiteralExpr:
    case CXCursor_CharacterLiteral:
    case CXCursor_StringLiteral:
        literal(cursor);
        return;
    case CXCursor_DeclRefExpr:
        reference(cursor);
        return;
    case CXCursor_MemberRefExpr:
        for (const CXCursor part : expressionsIn(cursor)) {
            if (placeOf(part).begin == placeOf(cursor).begin)
                expression(part);
        }
        return;
    case CXCursor_LambdaExpr:
    case CXCursor_BlockExpr:
        functionBody(cursor);
        return;
    case CXCursor_UnaryExpr: // sizeof and its like
    case CXCursor_CXXTypeidExpr:
        return;
    default:
        for (const CXCursor part : expressionsIn(cursor))
            expression(part);
    }
}

/// What a branch depends on. A comparison and what is made of several are negated by their own mutants.
void Planter::condition(CXCursor cursor)
{
    const CXCursor inner = bare(cursor);
    const CXCursorKind kind = clang_getCursorKind(inner);
    const bool hasOwn
        = (kind == CXCursor_BinaryOperator && clang_getCursorBinaryOperatorKind(inner) >= CXBinaryOperator_LT
              && clang_getCursorBinaryOperatorKind(inner) <= CXBinaryOperator_LOr)
        || (kind == CXCursor_UnaryOperator && clang_getCursorUnaryOperatorKind(inner) == CXUnaryOperator_LNot)
        || spelling(inner) == "operator==" || spelling(inner) == "operator!=";
    if (!hasOwn)
        negate(inner, placeOf(inner), "condition", inOneLine(inner) + " => negated");
    expression(cursor);
}

void Planter::negate(CXCursor cursor, const Place& place, const char* kind, const std::string& change)
{
    if (!isNew(place, "negation"))
        return;
    const int number = add(cursor, kind, change);
    m_text.enclose(
        place.begin, "(::mutants::is(" + std::to_string(number) + ") != static_cast<bool>(", place.end, "))");
}

void Planter::binary(CXCursor cursor)
{
    const auto sides = expressionsIn(cursor);
    if (sides.size() != 2)
        return;
    const CXBinaryOperatorKind kind = clang_getCursorBinaryOperatorKind(cursor);
    const Place left = placeOf(sides[0]);
    const Place right = placeOf(sides[1]);
    const std::string leftText = inOneLine(sides[0]);
    const std::string rightText = inOneLine(sides[1]);

    if (kind == CXBinaryOperator_LAnd || kind == CXBinaryOperator_LOr) {
        const bool isAnd = kind == CXBinaryOperator_LAnd;
        if (isNew(cursor, "logic")) {
            const std::string both = leftText + (isAnd ? " && " : " || ") + rightText;
            for (const auto& [side, rest] : { std::pair { left, rightText }, std::pair { right, leftText } }) {
                const int number = add(cursor, "logic", both + " => " + rest);
                m_text.enclose(side.begin,
                    std::string(isAnd ? "(" : "(!") + "::mutants::is(" + std::to_string(number)
                        + (isAnd ? ") || " : ") && ") + "static_cast<bool>(",
                    side.end, "))");
            }
        }
        condition(sides[0]);
        condition(sides[1]);
        return;
    }
    if (kind == CXBinaryOperator_EQ || kind == CXBinaryOperator_NE) {
        negate(cursor, placeOf(cursor), "comparison",
            leftText + (kind == CXBinaryOperator_EQ ? " == " : " != ") + rightText + " => negated");
    } else {
        const bool isDifferenceOfPointers = kind == CXBinaryOperator_Sub && isPointer(sides[0]) && isPointer(sides[1]);
        for (const Operation& operation : operations) {
            if (operation.kind != kind || isDifferenceOfPointers || isPointer(sides[1]) || !isNew(cursor, "operation"))
                continue;
            const std::string shown = leftText + ' ' + operation.sign + ' ' + rightText + " => ";
            std::string numbers = one(add(cursor, operation.mutantKind, shown + operation.other));
            if (operation.second != nullptr)
                numbers += one(add(cursor, operation.mutantKind, shown + operation.second));
            const std::string_view between = m_text.part(left.end, right.begin);
            const unsigned sign = left.end + static_cast<unsigned>(between.find(operation.sign));
            m_text.replace(sign, sign + static_cast<unsigned>(std::string_view(operation.sign).size()), ",");
            m_text.enclose(left.begin, std::string("::mutants::") + operation.function + '(' + numbers, right.end, ")");
        }
    }
    expression(sides[0]);
    expression(sides[1]);
}

void Planter::unary(CXCursor cursor)
{
    const auto parts = expressionsIn(cursor);
    if (parts.empty())
        return;
    const CXUnaryOperatorKind kind = clang_getCursorUnaryOperatorKind(cursor);
    const Place whole = placeOf(cursor);
    const Place operand = placeOf(parts.front());
    if (operand.begin < whole.begin) { // made by the compiler
        expression(parts.front());
        return;
    }
    if (kind == CXUnaryOperator_LNot) {
        negate(cursor, placeOf(cursor), "negation", inOneLine(cursor) + " => " + inOneLine(parts.front()));
    } else if ((kind == CXUnaryOperator_Minus || kind == CXUnaryOperator_PreInc || kind == CXUnaryOperator_PreDec)
        && isNew(cursor, "operation")) {
        const bool isMinus = kind == CXUnaryOperator_Minus;
        const char* const function = isMinus ? "minus" : kind == CXUnaryOperator_PreInc ? "increment" : "decrement";
        const char* const other = isMinus ? "no sign" : kind == CXUnaryOperator_PreInc ? "--" : "++";
        const int number = add(cursor, "arithmetic", inOneLine(cursor) + " => " + other);
        m_text.replace(whole.begin, operand.begin, std::string("::mutants::") + function + '(' + one(number));
        m_text.enclose(whole.end, "", whole.end, ")");
    }
    expression(parts.front());
}

void Planter::call(CXCursor cursor)
{
    const std::string name = spelling(cursor);
    const int count = clang_Cursor_getNumArguments(cursor);
    const bool isOperator = name.starts_with("operator");
    std::vector<CXCursor> arguments;
    for (int i = 0; i < count; ++i)
        arguments.push_back(clang_Cursor_getArgument(cursor, static_cast<unsigned>(i)));
    if ((name == "operator==" || name == "operator!=") && count == 2) {
        // One that the compiler made of its opposite begins at the sign.
        Place place = placeOf(arguments[0]);
        place.begin = std::min(place.begin, placeOf(arguments[1]).begin);
        place.end = std::max(place.end, placeOf(arguments[1]).end);
        const std::string comparison(m_text.part(place.begin, place.end));
        negate(cursor, place, "comparison", comparison + " => negated");
    }
    // The receiver of a method, or an object that is called.
    for (const CXCursor part : expressionsIn(cursor)) {
        const CXCursorKind named = clang_getCursorKind(clang_getCursorReferenced(part));
        const bool isCallee = clang_getCursorKind(part) == CXCursor_DeclRefExpr && named != CXCursor_VarDecl
            && named != CXCursor_ParmDecl;
        const bool isArgument = std::any_of(arguments.begin(), arguments.end(),
            [part](CXCursor argument) { return clang_equalCursors(argument, part) != 0; });
        if (!isArgument && !isCallee)
            expression(part);
    }
    const CXCursor callee = clang_getCursorReferenced(cursor);
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const CXCursor parameter = clang_Cursor_getArgument(callee, static_cast<unsigned>(i));
        if (name == "operator()" && i > 0) // the first is the object
            argument(arguments[i], clang_getCursorType(arguments[i]));
        else if (isOperator || clang_Cursor_isNull(parameter) != 0)
            expression(arguments[i]);
        else
            argument(arguments[i], clang_getCursorType(parameter));
    }
}

/// What can be null may be given as null, but for what a function is to write to.
void Planter::argument(CXCursor argument, CXType parameter)
{
    const CXCursor inner = bare(argument);
    const CXCursorKind kind = clang_getCursorKind(inner);
    const CXType referred = clang_getPointeeType(clang_getCanonicalType(parameter));
    const bool isWritten
        = clang_getCanonicalType(parameter).kind == CXType_LValueReference && clang_isConstQualifiedType(referred) == 0;
    const bool isNullAlready = kind == CXCursor_CXXNullPtrLiteralExpr || kind == CXCursor_StringLiteral
        || kind == CXCursor_InitListExpr || kind == CXCursor_LambdaExpr || textOf(argument) == "nullptr";
    if (!isWritten && !isNullAlready && canBeNull(clang_getCursorType(inner)) && isNew(argument, "null")) {
        const int number = add(argument, "null", inOneLine(argument) + " => null");
        m_text.enclose(placeOf(argument).begin, "::mutants::null(" + one(number), placeOf(argument).end, ")");
    }
    expression(argument);
}

void Planter::literal(CXCursor cursor)
{
    const std::string shown = inOneLine(cursor);
    const bool isMacro = std::string_view("0123456789.'\"tf").find(shown.front()) == std::string_view::npos;
    if (isMacro || !isNew(cursor, "literal"))
        return;
    const Place place = placeOf(cursor);
    if (clang_getCursorKind(cursor) == CXCursor_StringLiteral) {
        if (shown != "\"\"") {
            const int number = add(cursor, "constant", shown + " => \"\"");
            m_text.enclose(place.begin, "::mutants::text(" + one(number), place.end, ")");
        }
        return;
    }
    const bool isTruth = clang_getCursorKind(cursor) == CXCursor_CXXBoolLiteralExpr;
    const bool isZero = shown.find_first_not_of("0.fFuUlL'") == shown.npos;
    const int next = add(cursor, "constant", shown + (isTruth ? " => negated" : " => + 1"));
    const int zero = isTruth || isZero ? -1 : add(cursor, "constant", shown + " => 0");
    m_text.enclose(place.begin, "::mutants::changed(" + one(next) + one(zero), place.end, ")");
}

/// A named constant that is a number, or one of an enumeration.
void Planter::reference(CXCursor cursor)
{
    const CXCursor named = clang_getCursorReferenced(cursor);
    const CXCursorKind kind = clang_getCursorKind(named);
    const Place declared = placeOf(named);
    const bool isConstant = kind == CXCursor_EnumConstantDecl
        || (kind == CXCursor_VarDecl && clang_isConstQualifiedType(clang_getCursorType(named)) != 0
            && clang_getCursorKind(clang_getCursorSemanticParent(named)) == CXCursor_Namespace
            && !declared.file.empty());
    if (!isConstant || !isNumber(clang_getCursorType(named)) || !isNew(cursor, "literal"))
        return;
    const int number = add(cursor, "constant", inOneLine(cursor) + " => + 1");
    m_text.enclose(placeOf(cursor).begin, "::mutants::changed(" + one(number) + "-1, ", placeOf(cursor).end, ")");
}

} // namespace panotra::mutants
