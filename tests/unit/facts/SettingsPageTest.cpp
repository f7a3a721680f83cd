/// The settings page against the table of settings, row by row, and the doctor's page against what it listens to.
#include "facts/MixerSettings.h"
#include "facts/PublicNames.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <plist/plist.h>

#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace panotra {
namespace {

using ::testing::ElementsAreArray;

/// The dictionary of a control or of a heading. What it lacks, or has of another type, is empty, none or -1.
class PageCell {
public:
    explicit PageCell(plist_t dictionary)
        : m_dictionary(dictionary)
    {
    }

    std::string text(const char* key) const { return textOf(plist_dict_get_item(m_dictionary, key)); }
    std::optional<double> number(const char* key) const { return numberOf(plist_dict_get_item(m_dictionary, key)); }
    plist_type typeOf(const char* key) const { return plist_get_node_type(plist_dict_get_item(m_dictionary, key)); }

    std::vector<std::string> texts(const char* key) const
    {
        std::vector<std::string> result;
        for (const plist_t each : elements(key))
            result.push_back(textOf(each));
        return result;
    }
    std::vector<double> numbers(const char* key) const
    {
        std::vector<double> result;
        for (const plist_t each : elements(key))
            result.push_back(numberOf(each).value_or(-1));
        return result;
    }

private:
    std::vector<plist_t> elements(const char* key) const
    {
        std::vector<plist_t> result;
        const plist_t array = plist_dict_get_item(m_dictionary, key);
        for (std::uint32_t i = 0; array != nullptr && i < plist_array_get_size(array); ++i)
            result.push_back(plist_array_get_item(array, i));
        return result;
    }
    static std::string textOf(plist_t node)
    {
        return plist_get_node_type(node) == PLIST_STRING ? plist_get_string_ptr(node, nullptr) : "";
    }
    static std::optional<double> numberOf(plist_t node)
    {
        std::uint8_t boolean = 0;
        std::uint64_t integer = 0;
        double real = 0;
        switch (plist_get_node_type(node)) {
        case PLIST_BOOLEAN:
            plist_get_bool_val(node, &boolean);
            return boolean;
        case PLIST_UINT:
            plist_get_uint_val(node, &integer);
            return static_cast<double>(integer);
        case PLIST_REAL:
            plist_get_real_val(node, &real);
            return real;
        default:
            return std::nullopt;
        }
    }

    plist_t m_dictionary;
};

class SettingsPage : public ::testing::Test {
protected:
    explicit SettingsPage(const char* page = PANOTRA_SETTINGS_PAGE)
        : m_path(page)
    {
    }

    void SetUp() override
    {
        std::ifstream file(m_path, std::ios::binary);
        const std::string bytes { std::istreambuf_iterator<char>(file), {} };
        plist_t page = nullptr;
        plist_from_memory(bytes.data(), static_cast<std::uint32_t>(bytes.size()), &page);
        m_page.reset(page);
        const plist_t items = plist_dict_get_item(page, "items");
        ASSERT_NE(items, nullptr) << m_path;
        std::string heading;
        for (std::uint32_t i = 0; i < plist_array_get_size(items); ++i) {
            const PageCell cell(plist_array_get_item(items, i));
            if (cell.text("cell") == "PSGroupCell") {
                heading = cell.text("label");
            } else if (!cell.text("key").empty()) {
                EXPECT_TRUE(controls.emplace(cell.text("key"), cell).second) << "two controls for " << cell.text("key");
                headings[cell.text("key")] = heading;
            }
        }
    }

    std::map<std::string, PageCell> controls; ///< by key
    std::map<std::string, std::string> headings; ///< of the group in which each stands

private:
    const char* m_path;
    std::unique_ptr<void, void (*)(plist_t)> m_page { nullptr, plist_free };
};

class DoctorsPage : public SettingsPage {
protected:
    DoctorsPage()
        : SettingsPage(PANOTRA_DOCTORS_PAGE)
    {
    }
};

TEST_F(SettingsPage, HasOneControlForEverySettingAndNoOther)
{
    std::vector<std::string> found, expected;
    for (const auto& [key, cell] : controls)
        found.push_back(key);
    for (const MixerSetting& setting : mixerSettings)
        expected.emplace_back(setting.key);
    EXPECT_THAT(found, ::testing::UnorderedElementsAreArray(expected));
}

TEST_F(SettingsPage, StoresWhereTheMixerReadsAndTellsItOfTheChange)
{
    for (const MixerSetting& setting : mixerSettings) {
        SCOPED_TRACE(setting.key);
        const PageCell& cell = controls.at(setting.key);
        EXPECT_EQ(cell.text("defaults"), setting.domain);
        EXPECT_EQ(cell.text("PostNotification"), setting.changeNotification());
        EXPECT_EQ(cell.number("default"), setting.absentValue);
    }
}

TEST_F(DoctorsPage, AsksForAReport)
{
    ASSERT_EQ(controls.size(), 1U);
    EXPECT_EQ(controls.begin()->second.text("PostNotification"), notification::doctorAsked);
}

TEST_F(SettingsPage, OffersWhatMayBeChosen)
{
    for (const MixerSetting& setting : mixerSettings) {
        SCOPED_TRACE(setting.key);
        const PageCell& cell = controls.at(setting.key);
        switch (setting.kind) {
        case SettingKind::Choice: {
            std::vector<double> numbers;
            for (std::size_t value = 0; value < setting.choices.size(); ++value)
                numbers.push_back(static_cast<double>(value));
            EXPECT_EQ(cell.text("cell"), "PSLinkListCell");
            EXPECT_EQ(cell.typeOf("default"), PLIST_UINT);
            EXPECT_THAT(cell.numbers("validValues"), ElementsAreArray(numbers));
            EXPECT_THAT(cell.texts("validTitles"), ElementsAreArray(setting.choices.begin(), setting.choices.end()));
            break;
        }
        case SettingKind::Switch:
            EXPECT_EQ(cell.text("cell"), "PSSwitchCell");
            EXPECT_EQ(cell.typeOf("default"), PLIST_BOOLEAN);
            break;
        case SettingKind::Range:
            EXPECT_EQ(cell.text("cell"), "PSSliderCell");
            EXPECT_EQ(cell.typeOf("default"), PLIST_REAL);
            EXPECT_EQ(cell.number("min"), setting.least);
            EXPECT_EQ(cell.number("max"), setting.most);
            break;
        }
    }
}

/// A slider shows no label of its own: it stands alone under a heading.
TEST_F(SettingsPage, CallsSettingsByTheirLabels)
{
    for (const MixerSetting& setting : mixerSettings) {
        const std::string shown
            = setting.kind == SettingKind::Range ? headings.at(setting.key) : controls.at(setting.key).text("label");
        EXPECT_EQ(shown, setting.label) << setting.key;
    }
}

} // namespace
} // namespace panotra
