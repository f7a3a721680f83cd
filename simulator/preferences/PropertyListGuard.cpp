/// What stands before the property list library: it is shown only what it carries through a rewrite unharmed.
#include "simulator/preferences/PropertyListGuard.h"

namespace panotra::preferences {

std::optional<std::string> objectionTo(std::string_view bytes)
{
    if (bytes.empty())
        return "is empty";
    if (bytes.size() > largestFileBytes)
        return "is larger than 4 MiB";
    return bytes.starts_with(binaryMark) ? objectionToBinary(bytes) : objectionToXml(bytes);
}

} // namespace panotra::preferences
