/// The library's validators may change what they look at.
#include "simulator/commands/NamedOptions.h"

#include <utility>

namespace panotra::sim {

CLI::Validator named(NamedNumbers names)
{
    return CLI::Validator([names = std::move(names)](std::string& text) { return becomeNumber(text, names); }, "");
}

CLI::Validator namedBeforeEquals(NamedNumbers names)
{
    return CLI::Validator(
        [names = std::move(names)](std::string& text) { return becomeNumberOfPair(text, names); }, "");
}

} // namespace panotra::sim
