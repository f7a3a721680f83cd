/// The library's own tables against the table of systems: a hook, message, variable or key of another type, on other
/// systems, or on none, is a mistake of one of the two.
#include "hooks/HostTables.h"
#include "platform/ios/Messages.h"
#include "simulator/systems/Systems.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace panotra::systems {
namespace {

/// What one of the library's tables says of one thing.
struct Claim {
    Kind kind;
    std::string owner;
    std::string name;
    std::string type;
    int since;
    int until;
    bool mayIgnoreAnswer = false; ///< "v" where the method answers something
};

std::string textOf(const Claim& claim)
{
    return claim.owner + " " + claim.name + " " + claim.type;
}

bool isOfType(const Claim& claim, const Row& row)
{
    std::string theirs = row.type;
    if (claim.mayIgnoreAnswer && claim.type[0] == 'v')
        theirs[0] = 'v';
    return claim.type == theirs;
}

/// What is wrong with the claim; empty if nothing is.
std::string mistakeOf(const Claim& claim)
{
    std::set<int> found;
    for (const Row& row : allRows()) {
        if (row.kind != claim.kind || row.owner != claim.owner || row.name != claim.name)
            continue;
        for (int system = row.since; system <= row.until; ++system) {
            if (system < claim.since || system > claim.until)
                continue;
            if (!isOfType(claim, row))
                return "is " + std::string(row.type) + " on " + std::to_string(system);
            found.insert(system);
        }
    }
    for (int system = claim.since; system <= claim.until; ++system) {
        if (!found.contains(system))
            return "is not on " + std::to_string(system);
    }
    return {};
}

std::vector<Claim> claimsOfHooks()
{
    std::vector<Claim> claims;
    for (const HostMethod& row : hookedMethods)
        claims.push_back({ Kind::Method, row.className, row.method, row.type, row.since, row.until });
    return claims;
}

std::vector<Claim> claimsOfMessages()
{
    std::vector<Claim> claims;
    for (const ios::MessageRow& row : ios::messageRows)
        claims.push_back({ row.isToTheClass ? Kind::ClassMethod : Kind::Method, row.className, row.method(), row.type,
            row.since, row.until, true });
    return claims;
}

std::vector<Claim> claimsOfVariablesAndKeys()
{
    std::vector<Claim> claims;
    for (const VariableRow& row : variableRows)
        claims.push_back({ Kind::Variable, row.className, row.name, row.type, row.since, row.until });
    for (const KeyRow& row : keyRows)
        claims.push_back({ Kind::Key, "AVSystemController", row.name, row.valueClass, row.since, row.until });
    claims.push_back(
        { Kind::Attribute, "AVSystemController", AVController_ActiveAudioRouteAttribute, "NSString", 9, 16 });
    return claims;
}

/// What systems before the served ones had. It is asked for all the same: the simulated device's own process has it.
bool isBeforeTheServedSystems(const Claim& claim)
{
    return claim.name == "_realDisplayBounds" && claim.until < oldest;
}

TEST(TablesOfTheLibrary, HookWhatTheSystemsHaveWithItsTypes)
{
    for (const Claim& claim : claimsOfHooks())
        EXPECT_EQ(mistakeOf(claim), "") << textOf(claim);
}

TEST(TablesOfTheLibrary, SendWhatTheSystemsHaveWithItsTypes)
{
    int exceptions = 0;
    for (const Claim& claim : claimsOfMessages()) {
        if (isBeforeTheServedSystems(claim))
            ++exceptions;
        else
            EXPECT_EQ(mistakeOf(claim), "") << textOf(claim);
    }
    EXPECT_EQ(exceptions, 1);
}

TEST(TablesOfTheLibrary, ReadWhatTheSystemsHaveWithItsTypes)
{
    for (const Claim& claim : claimsOfVariablesAndKeys())
        EXPECT_EQ(mistakeOf(claim), "") << textOf(claim);
}

/// On every system one of the rows that stand for one thing is there; a thing that began late is named.
TEST(TablesOfTheLibrary, HookOneMethodOfEachKindOnEverySystem)
{
    for (int system = oldest; system <= newest; ++system) {
        int inTurn = 0;
        const HostMethod* first = nullptr;
        const auto conclude = [&] {
            const bool beganLate
                = first != nullptr && std::string_view(first->className) == "_UIStatusBar" && system < 11;
            // The application tells of a change of the orientation by the row that goes with the indicator's new
            // method.
            const bool endedEarly
                = first != nullptr && std::string_view(first->method) == "reorientHUDIfNeeded:" && system > 12;
            EXPECT_EQ(inTurn, first == nullptr || beganLate || endedEarly ? 0 : 1)
                << system << ' ' << (first ? first->method : "");
        };
        for (const HostMethod& row : hookedMethods) {
            if (row.turn == Always) {
                conclude();
                first = &row;
                inTurn = 0;
            }
            if (row.turn != AndAlso && row.since <= system && system <= row.until)
                ++inTurn;
        }
        conclude();
    }
}

/// What nobody calls is marked so, and nothing else is. The host calls two by itself: an override, and a public method.
TEST(TablesOfTheLibrary, SayOfEveryMethodOfTheSystemsWhetherAnybodyCallsIt)
{
    std::vector<Claim> claims = claimsOfHooks();
    for (Claim& claim : claimsOfMessages())
        claims.push_back(std::move(claim));
    claims.push_back({ Kind::Method, "SpringBoard", "activeInterfaceOrientation", "", oldest, newest });
    claims.push_back({ Kind::Method, "UIEvent", "type", "", oldest, newest });
    for (const Row& row : allRows()) {
        if (row.kind != Kind::Method && row.kind != Kind::ClassMethod)
            continue;
        const bool isCalled = std::ranges::any_of(claims, [&row](const Claim& claim) {
            return claim.kind == row.kind && claim.owner == row.owner && claim.name == row.name
                && claim.since <= row.until && row.since <= claim.until;
        });
        EXPECT_EQ(isCalled, row.caller != Caller::Nobody) << row.owner << ' ' << row.name << ' ' << row.since;
    }
}

// The comparison itself finds what it is there to find.

TEST(ComparisonWithTheSystems, FindsAnotherType)
{
    EXPECT_EQ(mistakeOf({ Kind::Method, "VolumeControl", "_presentVolumeHUDWithMode:volume:", "v@:qf", 9, 12 }),
        "is v@:if on 9");
    EXPECT_EQ(mistakeOf({ Kind::Variable, "SBVolumeControl", "_mode", "i", 13, 16 }), "is Q on 13");
    EXPECT_EQ(mistakeOf({ Kind::Key, "AVSystemController", "Volume", "NSString", 15, 16 }), "is NSNumber on 15");
}

TEST(ComparisonWithTheSystems, FindsWhatNoSystemHas)
{
    EXPECT_EQ(mistakeOf({ Kind::Method, "SBVolumeControl", "_presentVolumeHUD:", "v@:f", 13, 16 }), "is not on 13");
    EXPECT_EQ(mistakeOf({ Kind::ClassMethod, "SBVolumeControl", "sharedInstance", "@@:", 13, 16 }), "is not on 16");
    EXPECT_EQ(mistakeOf({ Kind::Method, "UIScreen", "_realDisplayBounds", "v@:", 9, 16 }), "is not on 9");
}

TEST(ComparisonWithTheSystems, LetsAnAnswerBeIgnoredOnlyWhereTheLibraryIsTheCaller)
{
    EXPECT_EQ(mistakeOf({ Kind::Method, "AXSpringBoardServer", "dismissSiri", "v@:", 9, 16, true }), "");
    EXPECT_EQ(mistakeOf({ Kind::Method, "AXSpringBoardServer", "dismissSiri", "v@:", 9, 16 }), "is B@: on 10");
}

} // namespace
} // namespace panotra::systems
