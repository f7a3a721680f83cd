/// Plants mutants into one file: walks what its functions do, and writes at each place what a mutant would do instead.
///
/// What the compiler evaluates (constant tables, assertions, labels, arguments of templates) holds none: a process
/// cannot choose among values that are in it from the beginning. Constants are mutated where a function uses them.
#pragma once

#include "tests/mutants/Source.h"

#include <set>
#include <string>
#include <tuple>
#include <vector>

namespace panotra::mutants {

struct Mutant {
    int number;
    std::string file;
    unsigned line;
    std::string function;
    std::string kind;
    std::string change; ///< ORIGINAL => CHANGED, in one line
    bool isInConstexpr; ///< the compiler may be the only one who calls the function
};

class Planter {
public:
    /// Numbers begin at `first`.
    Planter(std::string file, std::string original, int first);

    /// A function, method, constructor or destructor that the file defines, or the template of one.
    void plantInFunction(CXCursor function);

    /// Begins with the header that planted code calls; every line stays where it was.
    std::string planted() const { return "#include \"tests/mutants/Mutants.h\" " + m_text.edited(); }
    const std::vector<Mutant>& mutants() const { return m_mutants; }

private:
    void statement(CXCursor cursor, bool isSole);
    void block(CXCursor cursor);
    void branch(CXCursor cursor);
    void declaration(CXCursor cursor);
    void ifStatement(CXCursor cursor);
    void loop(CXCursor cursor);
    void returnStatement(CXCursor cursor, bool isSole);
    void simpleStatement(CXCursor cursor, bool isSole);
    void run(const std::vector<CXCursor>& calls);

    void expression(CXCursor cursor);
    void condition(CXCursor cursor);
    void binary(CXCursor cursor);
    void unary(CXCursor cursor);
    void call(CXCursor cursor);
    void argument(CXCursor argument, CXType parameter);
    void literal(CXCursor cursor);
    void reference(CXCursor cursor);
    void functionBody(CXCursor cursor);
    void wrapStatement(CXCursor cursor, const char* kind, bool isSole, const std::string& change);
    void negate(CXCursor cursor, const Place& place, const char* kind, const std::string& change);

    std::string_view textOf(CXCursor cursor) const;
    std::string inOneLine(CXCursor cursor) const;
    unsigned behindSemicolon(CXCursor cursor) const;
    bool startsWith(CXCursor cursor, std::string_view word) const;
    bool isHere(CXCursor cursor) const;
    /// Whether nothing was planted there yet: trees of templates and initialisers name some nodes twice.
    bool isNew(CXCursor cursor, const char* kind);
    bool isNew(const Place& place, const char* kind);
    int add(CXCursor cursor, const char* kind, const std::string& change);

    std::string m_file;
    EditedText m_text;
    int m_next;
    std::vector<Mutant> m_mutants;
    std::set<std::tuple<unsigned, unsigned, std::string>> m_done;

    // Of the function at hand.
    std::string m_function;
    bool m_isInConstexpr = false;
    bool m_mayDropReturn = false; ///< another return follows, or none is needed
    bool m_mayAnswerNothing = false; ///< its result can be made of nothing
    unsigned m_lastStatement = 0; ///< where it begins
};

} // namespace panotra::mutants
