/// The table of systems holds together: no row contradicts another.
#include "simulator/systems/Systems.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>

namespace panotra::systems {
namespace {

/// Public classes that every process has.
constexpr std::string_view publicClasses[]
    = { "NSObject", "UIResponder", "UIApplication", "UIView", "UIEvent", "UIScreen", "UIImage", "UIWindow", "CALayer" };

std::string nameOf(const Row& row)
{
    return std::string(row.owner) + " " + row.name;
}

bool isCalled(const Row& row, std::string_view whole)
{
    return whole == row.owner || whole == row.name || whole == nameOf(row);
}

bool hasClass(std::string_view name, int system)
{
    return std::ranges::find(publicClasses, name) != std::end(publicClasses)
        || std::ranges::any_of(allRows(),
            [&](const Row& row) { return row.kind == Kind::Class && row.owner == name && row.isOn(system); });
}

TEST(TableOfSystems, SpansOnlyTheSystemsThatThereAre)
{
    for (const Row& row : allRows()) {
        EXPECT_LE(oldest, row.since) << nameOf(row);
        EXPECT_LE(row.since, row.until) << nameOf(row);
        EXPECT_LE(row.until, newest) << nameOf(row);
    }
}

TEST(TableOfSystems, SaysOneThingOfEachSystem)
{
    for (const Row& row : allRows()) {
        for (const Row& other : allRows()) {
            const bool isSameThing = row.kind == other.kind && std::string_view(row.owner) == other.owner
                && (row.kind == Kind::Class || std::string_view(row.name) == other.name);
            if (&row == &other || !isSameThing)
                continue;
            EXPECT_TRUE(row.until < other.since || other.until < row.since) << nameOf(row);
        }
    }
}

TEST(TableOfSystems, GivesEveryClassItsSuperclassAndEveryMethodItsClass)
{
    for (const Row& row : allRows()) {
        if (row.kind == Kind::Notification)
            continue;
        for (int system = row.since; system <= row.until; ++system)
            EXPECT_TRUE(hasClass(row.kind == Kind::Class ? row.name : row.owner, system))
                << nameOf(row) << " on " << system;
    }
}

TEST(TableOfSystems, PutsSuperclassesBeforeTheClassesBelowThem)
{
    for (const Row* row = allRows().data(); row != allRows().data() + allRows().size(); ++row) {
        const bool isBehind = std::any_of(allRows().data(), row, [row](const Row& other) {
            return other.kind == Kind::Class && std::string_view(other.owner) == row->name;
        });
        const bool isPublic = std::ranges::find(publicClasses, std::string_view(row->name)) != std::end(publicClasses);
        EXPECT_TRUE(row->kind != Kind::Class || isBehind || isPublic) << nameOf(*row);
    }
}

TEST(TableOfSystems, TypesEveryMethodWithReceiverAndSelector)
{
    for (const Row& row : allRows()) {
        const bool isMethod = row.kind == Kind::Method || row.kind == Kind::ClassMethod;
        EXPECT_EQ(std::string_view(row.type).find("@:") != std::string_view::npos, isMethod) << nameOf(row);
        const auto colons = std::ranges::count(std::string_view(row.name), ':');
        EXPECT_TRUE(isMethod || colons == 0) << nameOf(row);
    }
}

TEST(TableOfSystems, LetsWhatTookAPlaceFollowOnWhatWasThere)
{
    for (const Row& row : allRows()) {
        if (row.insteadOf == nullptr)
            continue;
        const auto before = std::ranges::find_if(
            allRows(), [&](const Row& other) { return other.kind == row.kind && isCalled(other, row.insteadOf); });
        const auto any = std::ranges::find_if(
            allRows(), [&](const Row& other) { return isCalled(other, row.insteadOf) && other.until < row.since; });
        const bool isClassThatStayed = row.kind == Kind::Class && before != allRows().end();
        EXPECT_TRUE(isClassThatStayed || any != allRows().end()) << nameOf(row) << " instead of " << row.insteadOf;
    }
}

} // namespace
} // namespace panotra::systems
