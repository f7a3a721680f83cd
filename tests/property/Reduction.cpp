/// Leaves out line by line, the last first.
#include "tests/property/Reduction.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace panotra::testing {

std::string reduced(const std::string& scenario, const std::function<bool(const std::string& scenario)>& fails)
{
    std::vector<std::string> lines;
    for (std::size_t begin = 0; begin < scenario.size();) {
        const std::size_t end = std::min(scenario.find('\n', begin), scenario.size());
        lines.push_back(scenario.substr(begin, end - begin) + "\n");
        begin = end + 1;
    }
    const auto joined = [](const std::vector<std::string>& parts) {
        std::string text;
        for (const std::string& part : parts)
            text += part;
        return text;
    };
    for (std::size_t i = lines.size(); i-- > 0;) {
        auto shorter = lines;
        shorter.erase(shorter.begin() + static_cast<std::ptrdiff_t>(i));
        if (fails(joined(shorter)))
            lines = shorter;
    }
    return joined(lines);
}

} // namespace panotra::testing
