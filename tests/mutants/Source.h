/// A source as the compiler reads it: its tree and its text.
#pragma once

#include <clang-c/Index.h>

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace panotra::mutants {

std::string text(CXString string);

/// Where a node stands: from the first character to behind the last one.
struct Place {
    std::string file; ///< as the compiler names it
    unsigned begin = 0;
    unsigned end = 0;
    unsigned line = 0;
};

Place placeOf(CXCursor cursor);
std::vector<CXCursor> childrenOf(CXCursor cursor);
std::vector<CXCursor> expressionsIn(CXCursor cursor);
/// The node behind conversions, cleanups and parentheses, which have one expression alone.
CXCursor bare(CXCursor cursor);
std::string spelling(CXCursor cursor);
/// With the classes that it stands in, without namespaces.
std::string qualifiedName(CXCursor cursor);
/// Whether it is a handle of the seam or a pointer.
bool canBeNull(CXType type);

/// Texts that are put into the text of one file.
class EditedText {
public:
    explicit EditedText(std::string original)
        : m_original(std::move(original))
    {
    }

    const std::string& original() const { return m_original; }
    std::string_view part(unsigned begin, unsigned end) const
    {
        return std::string_view(m_original).substr(begin, end - begin);
    }

    /// What encloses is put in before what it encloses.
    void enclose(unsigned begin, std::string before, unsigned end, std::string after);
    void insert(unsigned at, std::string inserted) { enclose(at, {}, at, std::move(inserted)); }
    void replace(unsigned begin, unsigned end, std::string replacement);

    std::string edited() const;

private:
    struct Edit {
        std::string closing; ///< ends of what ends here, the innermost first
        std::string opening; ///< beginnings of what begins here, the outermost first
        std::string replacement;
        unsigned replaced = 0;
    };

    std::string m_original;
    std::map<unsigned, Edit> m_edits;
};

} // namespace panotra::mutants
