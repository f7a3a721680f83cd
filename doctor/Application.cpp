/// What the application answers where names and types alone do not tell whether the mixer will find it.
#include "platform/SpringBoard.h"

#include "doctor/Examination.h"
#include "doctor/HostMessages.h"
#include "doctor/Report.h"
#include "doctor/Text.h"
#include "facts/PublicNames.h"
#include "platform/Notify.h"

#include <string>

namespace panotra::doctor {

namespace {

/// What has to do with the system's indicators, as far as is known.
constexpr const char* indicatorClasses[]
    = { "SBHUDController", "SBRingerControl", "SBVolumeControl", "SBBannerManager" };
constexpr std::string_view partsOfIndicatorMethods[] = { "HUD", "present" };

void writeFound(std::string_view what, const NSObject& found)
{
    writeLine({ "  ", what, ": ", found ? kindOf(found) : "none" });
}

void writeStatusBar(std::string_view what, const UIView& bar)
{
    if (!bar) {
        writeFound(what, bar);
        return;
    }
    const CGPoint center = bar.center();
    writeLine({ "  ", what, ": ", kindOf(bar), bar.isHidden() ? ", hidden" : ", shown", ", centre ",
        decimal(static_cast<int>(center.x)), " ", decimal(static_cast<int>(center.y)) });
}

void writeScenes()
{
    const NSObject scenes = connectedScenes();
    const std::size_t count = countOf(scenes);
    for (std::size_t index = 0; index < count; ++index) {
        const NSObject scene = objectAt(scenes, index);
        const bool isTaken = scene == UIApplication::current().connectedWindowScene();
        writeLine({ "  scene (note 2): ", kindOf(scene), isOfMainScreen(scene) ? ", of the main screen" : "",
            isTaken ? ", taken" : "" });
    }
    if (count == 0)
        writeLine({ "  scene (note 2): none" });
}

void writeWaysToAnIndicator()
{
    for (const char* const className : indicatorClasses) {
        for (const std::string& method : namesOfOwnMethods(className)) {
            for (const std::string_view part : partsOfIndicatorMethods) {
                if (method.find(part) == std::string::npos)
                    continue;
                writeLine({ "  way to an indicator (note 3): ", className, " ", method });
                break;
            }
        }
    }
}

void writeStateOfScreen()
{
    std::int32_t token = -1;
    notify_register_check(notification::screenChanged, &token);
    writeLine({ "  state of the screen (note 7): ", decimal(static_cast<int>(notify_get_state(token))) });
}

} // namespace

void writeButtons(std::string_view beginning)
{
    const VolumeControl buttons = VolumeControl::current();
    writeLine({ beginning, buttons ? kindOf(buttons) : "none", ", mode ",
        decimal(static_cast<int>(buttons.valueForKey(volumeMode).integerValue())), ", up ",
        buttons.valueForKey(volumeUpButtonIsDown).boolValue() ? "held" : "not held", ", down ",
        buttons.valueForKey(volumeDownButtonIsDown).boolValue() ? "held" : "not held" });
}

void writeOrientation()
{
    writeLine({ "  orientation (note 5): ",
        decimal(static_cast<int>(UIApplication::sharedApplication().activeInterfaceOrientation())) });
}

void examineApplication(int system)
{
    writeLine({ "" });
    writeLine({ "application" });
    writeButtons("  volume buttons (note 4): ");
    writeScenes();
    if (isLater(system))
        writeWaysToAnIndicator();
    writeOrientation();
    writeStatusBar("status bar (note 6)", UIApplication::current().statusBar());
    writeStatusBar(
        "status bar of the home screen (note 6)", SpringBoard::sharedApplication().statusBarForEmbeddedDisplay());
    writeStateOfScreen();
    writeLine({ "  gesture framework (note 8): ", hasClass("LAActivator") ? "there" : "none" });
}

} // namespace panotra::doctor
