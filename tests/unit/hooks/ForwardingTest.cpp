/// What a hook replaced is called with the receiver, the selector and every argument as the host gave them, and what
/// it answers goes back to the host.
#include "hooks/Panotra.h"
#include "hooks/PreviousImplementations.h"
#include "tests/support/MixerTest.h"

namespace panotra {
namespace {

/// Objects and selectors that are compared, never used.
template <typename Pointer> Pointer token(std::uintptr_t number)
{
    return reinterpret_cast<Pointer>(number * 64);
}

const id target = token<id>(1);
const SEL methodName = token<SEL>(2);
const id completion = token<id>(3);
const id fallback = token<id>(4);

int calls = 0;

/// Stands in for what a hook replaced: compares what arrives with what it was told to expect, and answers.
template <typename Signature> struct Expectation;
template <typename Result, typename... Arguments> struct Expectation<Result(Arguments...)> {
    static inline std::tuple<Arguments...> expected;
    static inline Result answer;

    static Result check(id self, SEL name, Arguments... arguments)
    {
        ++calls;
        EXPECT_EQ(self, target);
        EXPECT_EQ(name, methodName);
        EXPECT_EQ(std::tuple(arguments...), expected);
        return answer;
    }
};

template <typename... Arguments> struct Expectation<void(Arguments...)> {
    static inline std::tuple<Arguments...> expected;

    static void check(id self, SEL name, Arguments... arguments)
    {
        ++calls;
        EXPECT_EQ(self, target);
        EXPECT_EQ(name, methodName);
        EXPECT_EQ(std::tuple(arguments...), expected);
    }
};

struct Forwarding : testing::MixerTest {
    Forwarding()
    {
        launch();
        calls = 0;
    }

    template <typename Result, typename... Arguments>
    static void expectForwarded(PreviousImplementation<Result(Arguments...)>& replaced,
        Result (*hook)(id, SEL, Arguments...), Result answer, Arguments... arguments)
    {
        using Stub = Expectation<Result(Arguments...)>;
        Stub::expected = std::tuple(arguments...);
        Stub::answer = answer;
        replaced.implementation = reinterpret_cast<IMP>(&Stub::check);
        const int before = calls;
        EXPECT_EQ(hook(target, methodName, arguments...), answer);
        EXPECT_EQ(calls, before + 1);
    }
    /// A hook without an answer.
    template <typename... Arguments>
    static void expectHandedOn(PreviousImplementation<void(Arguments...)>& replaced,
        void (*hook)(id, SEL, Arguments...), std::type_identity_t<Arguments>... arguments)
    {
        using Stub = Expectation<void(Arguments...)>;
        Stub::expected = std::tuple<Arguments...>(arguments...);
        replaced.implementation = reinterpret_cast<IMP>(&Stub::check);
        const int before = calls;
        hook(target, methodName, arguments...);
        EXPECT_EQ(calls, before + 1);
    }
};

TEST_F(Forwarding, ASoundKeepsItsEnvironmentsItsCompletionAndItsAnswer)
{
    for (const bool answer : { true, false })
        expectForwarded<bool, id, NSInteger, id>(
            previous.playSound, hooks::playSound, answer, nullptr, 0x0123'4567'89ab'cdef, completion);
}

TEST_F(Forwarding, TheActiveVolumeKeepsItsPointersAndItsAnswer)
{
    float level = 0.5f;
    id name = nullptr;
    for (const bool answer : { true, false })
        expectForwarded<bool, float*, id*, id>(
            previous.getActiveCategoryVolume, hooks::getActiveCategoryVolume, answer, &level, &name, fallback);
}

TEST_F(Forwarding, AVolumeThatAProgramSetsKeepsItsLevelItsCategoryAndItsAnswer)
{
    for (const bool answer : { true, false })
        expectForwarded<bool, float, id>(previous.setVolumeTo, hooks::setVolumeTo, answer, 0.3f, nullptr);
}

TEST_F(Forwarding, TheIndicatorOfEverySystemKeepsItsReceiverAndItsArguments)
{
    processValues.replaceHUD = false;
    processValues.manualSet = false;
    const id view = token<id>(5);
    expectHandedOn(previous.presentHUDView, hooks::presentHUDView, view, 2.5);
    expectHandedOn(previous.presentHUD, hooks::presentHUD, view, true);
    expectHandedOn(previous.presentVolumeHUDWithMode, hooks::presentVolumeHUDWithMode, 1, 0.25f);
    expectHandedOn(previous.presentVolumeHUD, hooks::presentVolumeHUD, 0.25f);
    expectHandedOn(previous.activateRingerHUDFromMuteSwitch, hooks::activateRingerHUDFromMuteSwitch, 3);
    expectHandedOn(previous.activateRingerHUD, hooks::activateRingerHUD, 2, 0.25f, NSUInteger { 3 });
    expectHandedOn(previous.reorientHUDIfNeeded, hooks::reorientHUDIfNeeded, false);
    expectHandedOn(previous.noteInterfaceOrientationChanged, hooks::noteInterfaceOrientationChanged, NSInteger { 3 },
        0.5, token<id>(6));
    expectHandedOn(previous.setRingerMuted, hooks::setRingerMuted, true);
}

TEST_F(Forwarding, AHookWithoutAPreviousImplementationAnswersNo)
{
    previous.playSound.implementation = nullptr;
    EXPECT_FALSE(hooks::playSound(target, methodName, nullptr, 0, completion));
    previous.setVolumeTo.implementation = nullptr;
    EXPECT_FALSE(hooks::setVolumeTo(target, methodName, 0.3f, nullptr));
}

} // namespace
} // namespace panotra
