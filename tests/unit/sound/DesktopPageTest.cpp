/// What the person is told of outputs and roles, against the tables of the code: docs/desktop.md.
#include "simulator/sound/SoundTables.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <string>
#include <vector>

namespace panotra::sound {
namespace {

using Cells = std::vector<std::string>;

/// The rows of the table whose header begins so, without header and rule.
std::vector<Cells> rowsOfTable(const std::string& header)
{
    std::ifstream page(PANOTRA_DESKTOP_PAGE);
    std::vector<Cells> rows;
    bool isInside = false;
    for (std::string line; std::getline(page, line);) {
        isInside = line.starts_with(header) || (isInside && line.starts_with("|"));
        if (!isInside || line.starts_with(header) || line.starts_with("|---"))
            continue;
        Cells cells;
        for (std::size_t start = 2; start < line.size();) {
            const std::size_t end = line.find(" |", start);
            cells.push_back(line.substr(start, end - start));
            start = end + 3;
        }
        rows.push_back(std::move(cells));
    }
    return rows;
}

std::string told(const OutputRoute& route)
{
    return route.hasSlot ? route.name : "no slot";
}

TEST(DesktopPage, TellsOfEveryKindOfOutputWhatIsSo)
{
    const auto rows = rowsOfTable("| Port or form factor |");
    ASSERT_EQ(rows.size(), routeRows.size() + 1) << "and a row for anything else";
    for (const Cells& row : rows) {
        ASSERT_EQ(row.size(), 3U);
        const std::string kind = row[0] == "none" ? "" : row[0] == "anything else" ? "a spinning disk" : row[0];
        EXPECT_EQ(row[1], told(routeOf({ .formFactor = kind }))) << row[0];
        EXPECT_EQ(row[2], told(routeOf({ .formFactor = kind, .bus = "bluetooth" }))) << row[0];
    }
    for (const RouteRow& known : routeRows) {
        const std::string words = *known.kind == '\0' ? "none" : known.kind;
        EXPECT_TRUE(std::ranges::any_of(rows, [&words](const Cells& row) { return row[0] == words; })) << words;
    }
}

TEST(DesktopPage, TellsOfEveryRoleWhatIsSo)
{
    const auto rows = rowsOfTable("| Role |");
    ASSERT_EQ(rows.size(), roleRows.size() + 1);
    for (const Cells& row : rows) {
        ASSERT_EQ(row.size(), 2U);
        const std::string role = row[0] == "anything else, and none" ? "" : row[0];
        EXPECT_EQ(row[1], categoryOfRole(role).value_or("changes nothing")) << row[0];
    }
    for (const RoleRow& known : roleRows)
        EXPECT_TRUE(std::ranges::any_of(rows, [&known](const Cells& row) { return row[0] == known.role; }))
            << known.role;
}

TEST(DesktopPage, TellsOfThePortsThatSayNothingAndOfTheStandIn)
{
    std::ifstream page(PANOTRA_DESKTOP_PAGE);
    const std::string text((std::istreambuf_iterator<char>(page)), std::istreambuf_iterator<char>());
    for (const char* const port : portTypesThatSayNothing)
        EXPECT_NE(text.find("`" + std::string(port) + "`"), std::string::npos) << port;
    EXPECT_NE(text.find("`" + std::string(standInOutput) + "`"), std::string::npos);
}

} // namespace
} // namespace panotra::sound
