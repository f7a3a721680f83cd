/// PNOVolumeView: one slider of the mixer, a rounded blur tile whose fill grows from its left edge with the level.
///
/// There are two kinds: named sliders (a text caption, laid out by setFrame) stand in the centred panel, icon
/// sliders (an image, laid out by setFrame2) in the banner. While the mixer is on screen a slider is the home of
/// its slot's level. Levels run from 0.0 to 1.0 and are not validated here: one above 1 draws a clipped fill, a
/// negative one a fill of negative width. A null slider ignores everything and answers zero.
#pragma once

#include "platform/NSUserDefaults.h"
#include "platform/UIBackdropView.h"
#include "platform/UIGestureRecognizer.h"
#include "platform/UIImage.h"
#include "platform/UILabel.h"

#include <cstdint>

namespace panotra {

class PNOVolumeView : public UIView {
public:
    using UIView::UIView;

    static const ClassDescription& description() noexcept;
    /// An object that has yet to be sent one of the two initialisers.
    static PNOVolumeView alloc() noexcept;

    // Both initialisers answer the receiver, always: if the superclass's `init` answers anything else the slider
    // is left without subviews, recogniser, tag and flag. `tag` is the slot number.

    PNOVolumeView initWithName(const NSString& name, std::uint16_t tag, bool canGoToZero) const;
    /// `image` is the base name of an image of the resource bundle; a missing one leaves an empty icon.
    PNOVolumeView initWithImage(const NSString& image, std::uint16_t tag, bool canGoToZero) const;

    using UIView::setFrame;
    /// Gives a named slider its frame (points of its group) and draws `level`. The held volume stays.
    void setFrame(CGRect frame, CGFloat level) const;
    /// The same for an icon slider.
    void setFrame2(CGRect frame, CGFloat level) const;

    /// Holds and draws the level, then has all twelve levels saved.
    void setVolumeLevel(CGFloat level) const;
    CGFloat volume() const;
    /// Stores the level, as a 32-bit number, under the key. A null slider stores zero.
    void saveVolume(const NSUserDefaults& defaults, const NSString& key) const;
    /// Holds the level and draws nothing.
    void setVolume(CGFloat level) const;
    /// Replaces the percentage by a text such as "Silent", until the level is next drawn.
    void setLevelText(const NSString& text) const;
    /// Shows the held volume as a percentage again.
    void showPercentage() const;

    /// The recogniser's action: turns the finger's place into a level, for every state of the gesture.
    void handleVolumeViewPan(const UIPanGestureRecognizer& recognizer) const;

    /// The fields that the host reads by name.
    struct InstanceVariables {
        UIBackdropView _backdropView; ///< the background, as large as the slider
        UIBackdropView _volumeView; ///< the fill: its width is the level
        UIImageView _imageView; ///< icon sliders only
        UILabel _label0; ///< the name; named sliders only
        UILabel _label1; ///< the percentage
        UIPanGestureRecognizer _volumePanRecognizer;
        bool _canGoToZero = false; ///< else a drag stops at one sixteenth
        CGFloat volume = 0;
        // No field of the host's to read.
        NSNumber volumeNumber; ///< of the level that was saved last
        std::uint32_t volumeNumberBits = 0; ///< that level
    };

private:
    InstanceVariables* fields() const noexcept;
    enum class Corners { Ordinary, Continuous };
    bool setUp(Corners corners) const;
    UIColor applySkin() const;
    UILabel addLabel(CGFloat fontSize, const UIColor& textColor) const;
    void drawFill(CGSize size, CGFloat level) const;
    void showPercentageOf(CGFloat level) const;
    CGFloat levelAt(CGFloat x) const;
    void setSystemVolume() const;
    void flashAssistant() const;
};

} // namespace panotra
