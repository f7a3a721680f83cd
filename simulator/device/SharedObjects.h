/// Objects of the process that others drive: the overlays of two other programs, and the voice assistant.
/// Being driven is what is worth reporting of them.
#pragma once

#include "simulator/device/View.h"

#include <string>

namespace panotra::sim {

/// The view of another indicator overlay. Traced as `overlay` when it is hidden or shown.
struct OverlayView : View {
    std::string owner; ///< the class by which the overlay is known
    explicit OverlayView(std::string ownerClass)
        : owner(std::move(ownerClass))
    {
    }
    void setHidden(bool value) override;
};

/// An overlay that is its window's first subview.
struct MeliorWindow : Window {
    MeliorWindow();
};

struct VolumeHUDManager : HostObject {
    HostObject* visibilityManager; ///< counted
    View* targetView; ///< counted
    VolumeHUDManager();
    ~VolumeHUDManager() override;
};

/// A status bar: a fixture of the screen that no frame moves. Traced as `statusBarFrame` when it is given one.
struct StatusBar : View {
    void setFrame(Rect frame) override;
};

/// The voice assistant's window. Traced as `assistant` when it is hidden.
struct AssistantWindow : Window {
    void setHidden(bool value) override;
};

struct AssistantController : HostObject {
    Window* window; ///< counted
    AssistantController();
    ~AssistantController() override;
};

} // namespace panotra::sim
