/// Parts and digits.
#include "doctor/Text.h"

#include <array>
#include <charconv>

namespace panotra::doctor {

std::string joined(std::initializer_list<std::string_view> parts)
{
    std::string whole;
    for (const std::string_view part : parts)
        whole.append(part.data(), part.size());
    return whole;
}

std::string decimal(int number)
{
    std::array<char, 12> digits; // a sign, ten digits
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    return { digits.data(), end };
}

} // namespace panotra::doctor
