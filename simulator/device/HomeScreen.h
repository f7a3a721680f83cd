/// The process's own classes with their own implementations, and the events by which the outside drives them.
///
/// Every event goes the way it goes on a phone: through the class table, so that installed hooks see it. An
/// event on a class that is lacking does nothing. None of these turns the run loop.
#pragma once

#include "simulator/device/Device.h"
#include "simulator/device/NotificationBanner.h"
#include "simulator/device/SystemIndicator.h"

namespace panotra::sim {

enum class Button { Up, Down };

class HomeScreen {
public:
    explicit HomeScreen(Device& device);
    ~HomeScreen();

    // What other programs and the hardware set without telling anybody.
    std::int64_t volumeMode = 0; ///< `_mode` of VolumeControl
    bool volumeUpIsDown = false;
    bool volumeDownIsDown = false;
    bool assistantVisible = false;
    double rotationDuration = 0.3; ///< seconds

    // What an event asked for last, where the method that it reaches has no room for it.
    std::int64_t requestedMode = 0;
    double requestedStay = 0; ///< seconds

    /// The own indicator since it was last asked for, gone or not.
    std::optional<SystemIndicator> indicator;
    void showIndicator(double level, double stay = SystemIndicator::usualStay);

    /// Of the last notification that sounded, gone or not.
    std::optional<NotificationBanner> banner;

    // Events. What they call is looked for under its old name first.
    void finishLaunching();
    /// Absent values leave their key out of the announcement.
    void announce(const std::optional<std::string>& category, const std::optional<std::string>& reason,
        std::optional<float> level);
    void getActiveCategoryVolume(bool named);
    void setVolume(const std::string& category, float level);
    void press(Button button);
    void release(Button button);
    void presentHUD(double autoDismissDelay);
    void presentVolumeHUD(std::int64_t mode, float level);
    void reorientHUD(bool flag);
    /// `statusBarClass` is "UIStatusBar" or "_UIStatusBar".
    void setStatusBarFrame(const std::string& statusBarClass, double x, double y, double width, double height);
    void setRingerMuted(bool muted);
    /// An untyped sound does not respond to `soundType`.
    void playSound(std::optional<std::int64_t> type);
    /// `motionBegan:withEvent:` with an event of that type.
    void motionBegan(std::int64_t type);
    /// A Darwin notification from outside.
    void notify(const std::string& name);
    void sendActivatorEvent(const std::string& listener);
    /// `question` is "group", "title", "description" or "icon". Traced as `answer`.
    void askActivator(const std::string& question, const std::string& listener);
    /// Slider `slot`'s recogniser sends a state (the platform's number) with the finger at `x` in the slider.
    void pan(int slot, std::int64_t state, double x);

    // What the process holds, borrowed.

    /// The one object of a class that has a shared one, or null where the class is lacking. `UIApplication` and
    /// `SpringBoard` share the application.
    HostObject* shared(const std::string& className);
    /// The screen's object. It responds to `_realDisplayBounds` only if the screen has them.
    HostObject* mainScreen();
    /// The status bar, its centre where the screen says.
    HostObject* statusBar();
    /// The scene to which windows belong on the device's system; null where there is none, or nobody to ask for it.
    HostObject* windowScene();
    /// The mixer's window, which it keeps in its field `_window`, or null.
    HostObject* window();
    /// Makes an object the gesture framework's listener. Traced as `listener`.
    void registerListener(HostObject* listener, const std::string& name);
    /// The audio service calls its `postEffectiveVolumeNotification:`.
    void announceChange(const std::string& category, float level);

private:
    struct Implementation;
    std::unique_ptr<Implementation> m_implementation;
};

} // namespace panotra::sim
