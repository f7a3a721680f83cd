/// Blur views and their settings.
#include "platform/UIBackdropView.h"

#include "platform/simulated/Host.h"
#include "simulator/device/View.h"

namespace panotra {

UIBackdropViewSettings UIBackdropViewSettings::settingsForStyle(
    std::int64_t style, std::int64_t graphicsQuality) noexcept
{
    return simulated::create<UIBackdropViewSettings, sim::BackdropSettings>(
        "_UIBackdropViewSettings", style, graphicsQuality);
}

UIBackdropView UIBackdropView::initWithFrame(
    CGRect frame, bool autosizesToFitSuperview, const UIBackdropViewSettings& settings) noexcept
{
    const UIBackdropView view = simulated::create<UIBackdropView, sim::BackdropView>("_UIBackdropView");
    view.setFrame(frame);
    if (auto* const backdrop = simulated::objectOf<sim::BackdropView>(view)) {
        backdrop->autosizes = autosizesToFitSuperview;
        if (const auto* const given = simulated::objectOf<sim::BackdropSettings>(settings)) {
            backdrop->style = given->style;
            backdrop->quality = given->quality;
        }
    }
    return view;
}

void UIBackdropView::setBlurRadius(CGFloat radius) const noexcept
{
    if (auto* const backdrop = simulated::objectOf<sim::BackdropView>(*this))
        backdrop->setBlurRadius(radius);
}

void UIBackdropView::transitionToStyle(std::int64_t style) const noexcept
{
    if (auto* const backdrop = simulated::objectOf<sim::BackdropView>(*this))
        backdrop->style = style;
}

UIView UIBackdropView::contentView() const noexcept
{
    const auto* const backdrop = simulated::objectOf<sim::BackdropView>(*this);
    return backdrop == nullptr ? UIView() : retained<UIView>(backdrop->content);
}

UIView UIBackdropView::effectView() const noexcept
{
    const auto* const backdrop = simulated::objectOf<sim::BackdropView>(*this);
    return backdrop == nullptr ? UIView() : retained<UIView>(backdrop->effect);
}

} // namespace panotra
