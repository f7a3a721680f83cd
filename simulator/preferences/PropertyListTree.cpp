/// A property list in memory: a dictionary of which only some values are settings, and all are kept.
#include "simulator/preferences/PropertyListTree.h"

#include "simulator/preferences/PropertyListFormats.h"
#include "simulator/preferences/Settings.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cassert>

namespace panotra::preferences {

namespace {

std::string sizeLimit()
{
    return "larger than " + std::to_string(largestFileBytes >> 20) + " MiB";
}

} // namespace

PropertyListTree::Parsed PropertyListTree::parse(std::string_view bytes)
{
    if (bytes.empty())
        return { std::nullopt, "is empty" };
    if (bytes.size() > largestFileBytes)
        return { std::nullopt, "is " + sizeLimit() };
    const Format format = bytes.starts_with(binaryMark) ? Format::Binary : Format::Xml;
    ReadValue read = format == Format::Binary ? readBinary(bytes) : readXml(bytes);
    if (!read.value)
        return { std::nullopt, std::move(read.objection) };
    if (!std::holds_alternative<Dictionary>(read.value->content))
        return { std::nullopt, "is a property list but no dictionary" };
    Parsed parsed { PropertyListTree() };
    parsed.tree->m_root = std::move(*read.value);
    parsed.tree->m_format = format;
    return parsed;
}

Settings PropertyListTree::settings() const
{
    Settings settings;
    for (const Entry& entry : entries())
        settings.append(entry.key, settingOf(entry.value));
    return settings;
}

bool PropertyListTree::isChangedBy(const Change& change) const
{
    const auto present = std::ranges::find(entries(), change.key, &Entry::key);
    const bool isPresent = present != entries().end();
    if (!isPresent || !change.value)
        return isPresent != change.value.has_value();
    return !isIdentical(settingOf(present->value), *change.value);
}

bool PropertyListTree::apply(const Change& change)
{
    if (!isChangedBy(change))
        return false;
    if (!change.value) {
        std::erase_if(entries(), [&](const Entry& entry) { return entry.key == change.key; });
        return true;
    }
    const auto found = std::ranges::find(entries(), change.key, &Entry::key);
    if (found == entries().end())
        entries().push_back({ change.key, valueOfSetting(*change.value) });
    else
        found->value = valueOfSetting(*change.value);
    return true;
}

PropertyListTree::Serialized PropertyListTree::serialize() const
{
    // What would not be taken in again is not written.
    if (auto objection = Extent().add(m_root))
        return { std::nullopt, *objection };
    auto bytes = m_format == Format::Xml ? writeXml(m_root) : std::nullopt;
    if (!bytes || bytes->size() > largestFileBytes)
        bytes = writeBinary(m_root);
    if (!bytes)
        return { std::nullopt, "holds a text that is not UTF-8" };
    if (bytes->size() > largestFileBytes)
        return { std::nullopt, "is " + sizeLimit() };
    return { std::move(bytes) };
}

} // namespace panotra::preferences
