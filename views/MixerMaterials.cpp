/// What the panel and its sliders are both made of.
#include "views/MixerMaterials.h"

namespace panotra {
namespace {

constexpr Rgba opaqueBlack { 0, 0, 0, 1 };

} // namespace

UIColor makeColor(const Rgba& rgba)
{
    if (rgba == opaqueBlack)
        return UIColor::blackColor();
    return UIColor::colorWithRed(static_cast<CGFloat>(rgba.red), static_cast<CGFloat>(rgba.green),
        static_cast<CGFloat>(rgba.blue), static_cast<CGFloat>(rgba.alpha));
}

UIBackdropView makeBackdrop(std::int64_t style)
{
    return UIBackdropView::initWithFrame({}, true, UIBackdropViewSettings::settingsForStyle(style, backdropQuality));
}

UILabel makeLabel(CGFloat fontSize)
{
    const UILabel label = UILabel::init();
    label.setTextAlignment(NSTextAlignmentCenter);
    label.setFont(UIFont::systemFontOfSize(fontSize, UIFontWeightLight));
    return label;
}

void applyMaterial(const MixerSkin& skin, const UIBackdropView& backdrop)
{
    backdrop.transitionToStyle(skin.backdropStyle);
    if (skin.isBlack) {
        backdrop.effectView().setAlpha(0);
        backdrop.setBackgroundColor(UIColor::blackColor());
    }
}

} // namespace panotra
