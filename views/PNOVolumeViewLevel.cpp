/// The slider's level: how it is held, laid out and drawn.
#include "model/Percentage.h"
#include "views/MixerDelegate.h"
#include "views/PNOVolumeView.h"

#include <bit>

namespace panotra {
namespace {

/// The corner radius of a named slider grows with its area.
constexpr CGFloat cornerRadiusPerArea = CGFloat(0.002);

} // namespace

void PNOVolumeView::drawFill(CGSize size, CGFloat level) const
{
    fields()->_volumeView.setFrame(CGRectMake(0, 0, size.width * level, size.height));
}

void PNOVolumeView::showPercentageOf(CGFloat level) const
{
    setLevelText(NSString::stringWithUTF8String(percentageText(level).data()));
}

// Both layouts read their measures back from the frame: one that the superclass adjusts is the one used.

void PNOVolumeView::setFrame(CGRect newFrame, CGFloat level) const
{
    const InstanceVariables* const self = fields();
    if (self == nullptr)
        return;
    setFrame(newFrame);
    const CGSize size = frame().size;
    layer().setCornerRadius(size.width * size.height * cornerRadiusPerArea);
    drawFill(size, level);
    self->_label0.setFrame(CGRectMake(0, size.height / 10, size.width, size.height / 2));
    self->_label1.setFrame(CGRectMake(0, size.height / 10 * 4, size.width, size.height / 2));
    showPercentageOf(level);
}

void PNOVolumeView::setFrame2(CGRect newFrame, CGFloat level) const
{
    const InstanceVariables* const self = fields();
    if (self == nullptr)
        return;
    setFrame(newFrame);
    const CGSize size = frame().size;
    layer().setCornerRadius(size.width / 2); // not limited to half the height
    drawFill(size, level);
    const CGFloat third = size.width / 3;
    self->_imageView.setFrame(CGRectMake(third, size.width / 9, third, third)); // the width alone decides
    self->_label1.setFrame(CGRectMake(0, size.height / CGFloat(2.5), size.width, size.height / 2));
    showPercentageOf(level);
}

void PNOVolumeView::setVolumeLevel(CGFloat level) const
{
    const InstanceVariables* const self = fields();
    if (self == nullptr)
        return;
    CGRect fill = self->_volumeView.frame();
    fill.size.width = frame().size.width * level;
    self->_volumeView.setFrame(fill);
    setVolume(level);
    showPercentageOf(level);
    mixerDelegate::saveVolumeLevelsToDisk();
}

CGFloat PNOVolumeView::volume() const
{
    const InstanceVariables* const self = fields();
    return self != nullptr ? self->volume : 0;
}

/// The number is made anew when the level changes. Two levels are the same if their bits are: zero with and without a
/// sign are stored differently.
void PNOVolumeView::saveVolume(const NSUserDefaults& defaults, const NSString& key) const
{
    InstanceVariables* const self = fields();
    if (self == nullptr) {
        defaults.setObject(NSNumber::numberWithFloat(0), key);
        return;
    }
    const auto level = static_cast<float>(self->volume);
    const auto bits = std::bit_cast<std::uint32_t>(level);
    if (!self->volumeNumber || self->volumeNumberBits != bits) {
        self->volumeNumber = NSNumber::numberWithFloat(level);
        self->volumeNumberBits = bits;
    }
    defaults.setObject(self->volumeNumber, key);
}

void PNOVolumeView::setVolume(CGFloat level) const
{
    if (InstanceVariables* const self = fields())
        self->volume = level;
}

void PNOVolumeView::setLevelText(const NSString& text) const
{
    if (const InstanceVariables* const self = fields())
        self->_label1.setText(text);
}

void PNOVolumeView::showPercentage() const
{
    showPercentageOf(volume());
}

} // namespace panotra
