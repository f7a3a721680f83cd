/// Lines of a text into a table.
#include "tests/hosts/macho/LinkMap.h"

#include <charconv>
#include <sstream>

namespace panotra::hosts {

LinkMap readLinkMap(std::string_view text)
{
    LinkMap map;
    std::istringstream lines { std::string(text) };
    bool isAtSymbols = false;
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("# ") && line.ends_with(':'))
            isAtSymbols = line == "# Symbols:";
        const std::size_t name = line.find("] ");
        if (!isAtSymbols || !line.starts_with("0x") || name == std::string::npos)
            continue;
        std::uint64_t address = 0;
        const auto [end, error] = std::from_chars(line.data() + 2, line.data() + line.size(), address, 16);
        if (error == std::errc() && *end == '\t')
            map.emplace(line.substr(name + 2), address);
    }
    return map;
}

} // namespace panotra::hosts
