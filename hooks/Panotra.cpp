/// The constructor with its tables of hooks and observers, and the hook of the host's launch.
#include "hooks/Panotra.h"

#include "controller/PNOController.h"
#include "facts/PublicNames.h"
#include "hooks/HookedMethod.h"
#include "hooks/HostTables.h"
#include "hooks/PreviousImplementations.h"
#include "model/ProcessValues.h"
#include "platform/MethodReplacement.h"
#include "platform/Notify.h"

#include <span>
#include <string_view>

namespace panotra {

constinit PreviousImplementations previous;

namespace {

/// A class is looked up once for all its hooks that follow each other. A class that inherits the method gets one of its
/// own first: hooking frameworks differ, and one that hooks what it finds would hook the superclass, and with it every
/// view of the process.
void install(std::span<const HookRow> rows)
{
    const char* className = nullptr;
    Class hostClass = nullptr;
    bool isFound = false; // a row since the last `Always` found its method
    bool isAboveFound = false; // the row above did
    const auto isDue = [&](const HookRow& row) {
        switch (row.turn) {
        case Always:
            return true;
        case OrElse:
            return !isFound;
        case AndAlso:
            return isAboveFound
                || (!isFound && row.insteadOf != nullptr && !hasMethod(objc_getClass(row.className), row.insteadOf));
        }
        return false;
    };
    for (const HookRow& row : rows) {
        if (row.turn == Always)
            isFound = isAboveFound = false;
        if (!isDue(row)) {
            isAboveFound = false;
            continue;
        }
        if (className == nullptr || std::string_view(row.className) != className) {
            className = row.className;
            hostClass = objc_getClass(className);
        }
        const HookEntry entry = row.entry();
        *entry.owner = hostClass;
        overrideInherited(hostClass, row.method, entry.callInherited);
        replaceMethod(hostClass, row.method, entry.implementation, entry.previous);
        isAboveFound = *entry.previous != nullptr;
        isFound = isFound || isAboveFound;
    }
}

constexpr std::span<const HookRow> everywhere { hookRows.data(), 1 };
constexpr std::span<const HookRow> inSpringBoard { hookRows.data() + 1, hookRows.size() - 1 };

} // namespace

void constructor() noexcept
{
    install(everywhere);
    notify_register_check(notification::shakeState, &processValues.shakeToken);
    if (!isSpringBoardProcess())
        return;
    install(inSpringBoard);
    addDarwinObserver(notification::ownSettingsChanged, settingsChanged);
    addDarwinObserver(notification::siblingSettingsChanged, brv2SettingsChanged);
    notify_register_check(notification::screenChanged, &processValues.screenToken);
    addDarwinObserver(notification::screenChanged, screenChanged);
    addDarwinObserver(notification::ownShaken, uikitShaken);
}

/// Settings are read for the first time here, after the host's own launch; the tear-down of nothing creates the
/// controller.
void hooks::applicationDidFinishLaunching(id self, SEL selector, id application)
{
    previous.applicationDidFinishLaunching(self, selector, application);
    PNOController::sharedInstance().releaseObjects();
    settingsChanged();
    brv2SettingsChanged();
}

} // namespace panotra
