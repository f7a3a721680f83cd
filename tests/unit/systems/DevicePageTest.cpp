/// What the owner is told works on which system, against the tables of the code: docs/device.md.
#include "hooks/HostTables.h"
#include "simulator/systems/Systems.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace panotra::systems {
namespace {

std::string trimmed(const std::string& text)
{
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::vector<std::string> split(const std::string& text, const std::string& separator)
{
    std::vector<std::string> parts;
    for (std::size_t start = 0;;) {
        const std::size_t end = text.find(separator, start);
        parts.push_back(trimmed(text.substr(start, end - start)));
        if (end == std::string::npos)
            return parts;
        start = end + separator.size();
    }
}

struct Feature {
    std::string what;
    std::string restsOn;
    std::vector<std::string> cells; ///< one a system
};

/// The rows of the one table that has a column a system.
std::vector<Feature> readFeatures()
{
    std::ifstream page(PANOTRA_DEVICE_PAGE);
    std::vector<Feature> features;
    bool isInside = false;
    for (std::string line; std::getline(page, line);) {
        const std::vector<std::string> cells = split(line, "|");
        if (line.starts_with("| What | Rests on | 9 |"))
            isInside = true;
        else if (!line.starts_with("|"))
            isInside = false;
        else if (isInside && cells.size() == 12 && !line.starts_with("|---"))
            features.push_back({ cells[1], cells[2], { cells.begin() + 3, cells.end() - 1 } });
    }
    return features;
}

/// "`CLASS member`" of a method, variable or attribute, or "`NOTIFICATION`". What has no backquotes is no business of
/// the tables.
bool isOn(int system, const std::string& item)
{
    if (!item.starts_with('`'))
        return true;
    const std::string name = item.substr(1, item.size() - 2);
    return std::ranges::any_of(allRows(), [&](const Row& row) {
        const std::string owner = row.owner;
        return row.kind != Kind::Class && row.isOn(system) && name == (owner.empty() ? "" : owner + " ") + row.name;
    });
}

bool hasAllOf(int system, const std::string& restsOn)
{
    return std::ranges::all_of(split(restsOn, ";"), [&](const std::string& needed) {
        return std::ranges::any_of(
            split(needed, " or "), [&](const std::string& alternative) { return isOn(system, alternative); });
    });
}

/// "yes", "expected (NOTE)" or "no (NOTE)".
std::string verdictOf(const std::string& cell)
{
    return cell.substr(0, cell.find(' '));
}

TEST(DevicePage, SaysNoWhereSomethingIsMissingAndNowhereElse)
{
    const std::vector<Feature> features = readFeatures();
    EXPECT_GT(features.size(), 20u) << PANOTRA_DEVICE_PAGE;
    for (const Feature& feature : features) {
        ASSERT_EQ(feature.cells.size(), static_cast<std::size_t>(newest - oldest + 1)) << feature.what;
        for (int system = oldest; system <= newest; ++system) {
            const std::string& cell = feature.cells[static_cast<std::size_t>(system - oldest)];
            EXPECT_EQ(verdictOf(cell) == "no", !hasAllOf(system, feature.restsOn)) << feature.what << ", " << system;
        }
    }
}

TEST(DevicePage, GivesAReasonWhereverItDoesNotSayYes)
{
    for (const Feature& feature : readFeatures()) {
        for (const std::string& cell : feature.cells) {
            const bool hasNote = cell.find(" (") != std::string::npos && cell.ends_with(')');
            EXPECT_TRUE(cell == "yes" || ((verdictOf(cell) == "expected" || verdictOf(cell) == "no") && hasNote))
                << feature.what << ": " << cell;
        }
    }
}

TEST(DevicePage, HasARowForEveryMethodThatIsHooked)
{
    std::string all;
    for (const Feature& feature : readFeatures())
        all += feature.restsOn;
    for (const HostMethod& row : hookedMethods) {
        const std::string method = '`' + std::string(row.className) + ' ' + row.method + '`';
        EXPECT_NE(all.find(method), std::string::npos) << method;
    }
}

TEST(DevicePage, NamesNothingThatNoSystemHas)
{
    for (const Feature& feature : readFeatures()) {
        for (const std::string& needed : split(feature.restsOn, ";")) {
            for (const std::string& item : split(needed, " or ")) {
                bool isAnywhere = false;
                for (int system = oldest; system <= newest; ++system)
                    isAnywhere = isAnywhere || isOn(system, item);
                EXPECT_TRUE(isAnywhere) << feature.what << ": " << item;
            }
        }
    }
}

/// The numbers of the notes of a cell: "(1, 2)".
std::vector<std::string> notesOf(const std::string& cell)
{
    const std::size_t start = cell.find('(');
    return start == std::string::npos ? std::vector<std::string>()
                                      : split(cell.substr(start + 1, cell.size() - start - 2), ",");
}

/// Whatever is not certain is looked at on the phone, and the line says for which note.
TEST(DevicePage, HasALineOfTheDoctorsForEveryNoteByWhichSomethingIsNotCertain)
{
    std::ifstream file(PANOTRA_DOCTORS_REPORT);
    const std::string report { std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>() };
    std::set<std::string> notes;
    for (const Feature& feature : readFeatures()) {
        for (const std::string& cell : feature.cells) {
            if (verdictOf(cell) == "expected")
                std::ranges::copy(notesOf(cell), std::inserter(notes, notes.end()));
        }
    }
    EXPECT_GE(notes.size(), 8u);
    for (const std::string& note : notes)
        EXPECT_NE(report.find("(note " + note + ")"), std::string::npos) << note;
}

/// "*ROW*" of what a row rests on; empty if it is no row.
std::string rowNamedBy(const std::string& item)
{
    return item.starts_with('*') ? item.substr(1, item.size() - 2) : "";
}

TEST(DevicePage, IsNeverSurerOfARowThanOfTheRowsItRestsOn)
{
    const std::vector<std::string> fromWorst { "no", "expected", "yes" };
    const auto sureness = [&](const std::string& cell) {
        return std::ranges::find(fromWorst, verdictOf(cell));
    };
    const std::vector<Feature> features = readFeatures();
    int rowsOnRows = 0;
    for (const Feature& feature : features) {
        for (const std::string& item : split(feature.restsOn, ";")) {
            const std::string name = rowNamedBy(item);
            if (name.empty())
                continue;
            ++rowsOnRows;
            const auto base = std::ranges::find(features, name, &Feature::what);
            ASSERT_NE(base, features.end()) << feature.what << " rests on no row called " << name;
            for (std::size_t i = 0; i < feature.cells.size(); ++i)
                EXPECT_LE(sureness(feature.cells[i]), sureness(base->cells[i])) << feature.what << ", column " << i;
        }
    }
    EXPECT_GT(rowsOnRows, 5);
}

} // namespace
} // namespace panotra::systems
