/// Makes the capitals of ASCII small, whatever the locale.
#include "simulator/text/SmallLetters.h"

#include <algorithm>

namespace panotra {

std::string inSmallLetters(std::string_view text)
{
    std::string small(text);
    std::ranges::transform(small, small.begin(),
        [](char letter) { return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter; });
    return small;
}

} // namespace panotra
