/// The slider: its class, its two initialisers and its tear-down.
#include "views/PNOVolumeView.h"

#include "model/ProcessValues.h"
#include "platform/MethodEntry.h"
#include "platform/UIScreen.h"
#include "views/MixerDelegate.h"
#include "views/MixerMaterials.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>

namespace panotra {
namespace {

using Fields = PNOVolumeView::InstanceVariables;

constexpr CGFloat borderWidth = 1.25;
constexpr std::int64_t fillStyle = 2060;
constexpr CGFloat nameFontSize = 14;
constexpr CGFloat percentageFontSize = 15;
/// The banner's percentage follows the screen: half its longer side in points, divided by this.
constexpr CGFloat halfScreenPerIconFontPoint = CGFloat(47.5);

constexpr std::array instanceVariableTable {
    instanceVariable<UIBackdropView>("_backdropView", offsetof(Fields, _backdropView)),
    instanceVariable<UIBackdropView>("_volumeView", offsetof(Fields, _volumeView)),
    instanceVariable<UIImageView>("_imageView", offsetof(Fields, _imageView)),
    instanceVariable<UILabel>("_label0", offsetof(Fields, _label0)),
    instanceVariable<UILabel>("_label1", offsetof(Fields, _label1)),
    instanceVariable<UIPanGestureRecognizer>("_volumePanRecognizer", offsetof(Fields, _volumePanRecognizer)),
    instanceVariable<bool>("_canGoToZero", offsetof(Fields, _canGoToZero)),
    instanceVariable<CGFloat>("volume", offsetof(Fields, volume)),
};

/// `dealloc`: out of the tree first, then released, each in this order.
void tearDown(id self, void* memory)
{
    Fields& fields = *static_cast<Fields*>(memory);
    UIView slider = adopt<UIView>(self); // borrowed: an object on its way out must not be counted
    slider.removeGestureRecognizer(fields._volumePanRecognizer);
    slider.leak();
    fields._imageView.removeFromSuperview();
    fields._backdropView.removeFromSuperview();
    fields._volumeView.removeFromSuperview();
    fields._label0.removeFromSuperview();
    fields._label1.removeFromSuperview();
    fields._imageView = nullptr;
    fields._volumePanRecognizer = nullptr;
    fields._backdropView = nullptr;
    fields._volumeView = nullptr;
    fields._label0 = nullptr;
    fields._label1 = nullptr;
    std::destroy_at(&fields);
}

CGFloat iconPercentageFontSize()
{
    const CGSize screen = UIScreen::mainScreen().bounds().size;
    return std::max(screen.width, screen.height) / 2 / halfScreenPerIconFontPoint;
}

} // namespace

const ClassDescription& PNOVolumeView::description() noexcept
{
    using SetFrame = void (PNOVolumeView::*)(CGRect, CGFloat) const;
    static const Method methodTable[] = {
        methodEntry<&PNOVolumeView::initWithName>("initWithName:andTag:canGoToZero:"),
        methodEntry<&PNOVolumeView::initWithImage>("initWithImage:andTag:canGoToZero:"),
        methodEntry<static_cast<SetFrame>(&PNOVolumeView::setFrame)>("setFrame:andLevel:"),
        methodEntry<&PNOVolumeView::setFrame2>("setFrame2:andLevel:"),
        methodEntry<&PNOVolumeView::setVolumeLevel>("setVolumeLevel:"),
        methodEntry<&PNOVolumeView::volume>("volume"),
        methodEntry<&PNOVolumeView::setVolume>("setVolume:"),
        methodEntry<&PNOVolumeView::handleVolumeViewPan>("handleVolumeViewPan:"),
    };
    static const ClassDescription description {
        "PNOVolumeView",
        "UIView",
        instanceVariableTable,
        methodTable,
        {},
        sizeof(Fields),
        [](void* memory) { std::construct_at(static_cast<Fields*>(memory)); },
        tearDown,
    };
    return description;
}

PNOVolumeView PNOVolumeView::alloc() noexcept
{
    return adopt<PNOVolumeView>(allocate(description()));
}

PNOVolumeView::InstanceVariables* PNOVolumeView::fields() const noexcept
{
    return static_cast<Fields*>(instanceVariables(get(), description()));
}

/// What both kinds begin with. The superclass's answer is compared where an assignment would usually stand: only
/// if it is the receiver does the set-up run, and the receiver is what the initialisers answer in every case.
bool PNOVolumeView::setUp(Corners corners) const
{
    Fields* const self = fields();
    if (self == nullptr || superInit(get(), description()) != get())
        return false;
    const CALayer layer = this->layer();
    layer.setMasksToBounds(true);
    if (corners == Corners::Continuous && layer.respondsToSelector("setContinuousCorners:"))
        layer.setContinuousCorners(true);
    layer.setBorderWidth(borderWidth);

    self->_volumePanRecognizer = UIPanGestureRecognizer::initWithTarget(*this, "handleVolumeViewPan:");
    addGestureRecognizer(self->_volumePanRecognizer);
    self->_backdropView = makeBackdrop(plainBackdropStyle);
    addSubview(self->_backdropView);
    self->_volumeView = makeBackdrop(fillStyle);
    self->_backdropView.contentView().addSubview(self->_volumeView);
    return true;
}

/// Gives the slider the look of `mixerSkin` and answers the colour of its text; null, the label's default, where
/// the setting names no skin.
UIColor PNOVolumeView::applySkin() const
{
    const MixerSkin* const skin = findMixerSkin(processValues.mixerSkin);
    if (skin == nullptr)
        return nullptr;
    applyMaterial(*skin, fields()->_backdropView);
    layer().setBorderColor(makeColor(skin->border));
    return makeColor(skin->text);
}

UILabel PNOVolumeView::addLabel(CGFloat fontSize, const UIColor& textColor) const
{
    const UILabel label = makeLabel(fontSize);
    label.setTextColor(textColor);
    fields()->_backdropView.contentView().addSubview(label);
    return label;
}

PNOVolumeView PNOVolumeView::initWithName(const NSString& name, std::uint16_t tag, bool canGoToZero) const
{
    if (!setUp(Corners::Continuous))
        return *this;
    Fields* const self = fields();
    const UIColor textColor = applySkin();
    self->_label0 = addLabel(nameFontSize, textColor);
    self->_label0.setText(name);
    self->_label1 = addLabel(percentageFontSize, textColor);
    setTag(tag);
    self->_canGoToZero = canGoToZero;
    return *this;
}

/// Icon sliders never ask for continuous corners, unlike named ones; the asymmetry is intended.
PNOVolumeView PNOVolumeView::initWithImage(const NSString& image, std::uint16_t tag, bool canGoToZero) const
{
    if (!setUp(Corners::Ordinary))
        return *this;
    Fields* const self = fields();
    const UIImage icon = UIImage::imageNamed(image, mixerDelegate::resourceBundle());
    self->_imageView = UIImageView::initWithImage(icon.imageWithRenderingMode(UIImageRenderingModeAlwaysTemplate));
    self->_backdropView.contentView().addSubview(self->_imageView);
    const UIColor textColor = applySkin();
    self->_imageView.setTintColor(textColor);
    self->_label1 = addLabel(iconPercentageFontSize(), textColor);
    setTag(tag);
    self->_canGoToZero = canGoToZero;
    return *this;
}

} // namespace panotra
