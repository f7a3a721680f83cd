/// Feeds the property list reader with arbitrary bytes. What it takes in must be what another reader makes of the same
/// bytes, and come back from what it writes.
#include "simulator/preferences/PropertyListFormats.h"
#include "simulator/preferences/PropertyListTree.h"
#include "simulator/preferences/Settings.h"
#include "tests/faults/IndependentReader.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

using namespace panotra::preferences;

void require(bool holds)
{
    if (!holds)
        std::abort();
}

bool isSame(const Settings& one, const Settings& other)
{
    return std::ranges::equal(one, other, [](const Setting& setting, const Setting& otherSetting) {
        return setting.key == otherSetting.key && isIdentical(setting.value, otherSetting.value);
    });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    PropertyListTree::Parsed parsed = PropertyListTree::parse(bytes);
    require(parsed.tree.has_value() == parsed.objection.empty());
    if (!parsed.tree)
        return 0;

    const bool isBinary = bytes.starts_with(binaryMark);
    const auto meaning = (isBinary ? testing::meaningOfBinary : testing::meaningOfXml)(std::string(bytes));
    require(meaning == testing::meaningOf(*(isBinary ? readBinary : readXml)(bytes).value));

    const Change change { "volume0", 0.5 };
    Settings settings = parsed.tree->settings();
    parsed.tree->apply(change);
    require(!parsed.tree->apply(change));
    const auto written = parsed.tree->serialize().bytes;
    if (!written)
        return 0;
    const PropertyListTree::Parsed back = PropertyListTree::parse(*written);
    require(back.tree.has_value());
    settings.apply(change);
    require(isSame(settings, back.tree->settings()));
    return 0;
}
