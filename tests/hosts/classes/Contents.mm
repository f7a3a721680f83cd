/// What views show: labels, pictures, layers.
#include "tests/hosts/classes/UIKit.h"

#include "simulator/device/RunLoop.h"
#include "tests/hosts/Values.h"

using namespace panotra;

// Texts and pictures.

@implementation UILabel

- (void)setText:(NSString*)text
{
    hosts::peerAs<sim::Label>(self)->text = hosts::textOf(text);
}

- (void)setTextAlignment:(long)alignment
{
    hosts::peerAs<sim::Label>(self)->alignment = alignment;
}

- (void)setFont:(id)font
{
    auto* const label = hosts::peerAs<sim::Label>(self);
    if (const auto* const given = hosts::peerAs<sim::Font>(font)) {
        label->fontSize = given->size;
        label->fontWeight = given->weight;
    }
}

- (void)setTextColor:(id)color
{
    hosts::peerAs<sim::Label>(self)->textColor = componentsOf(color);
}

@end

@implementation UIImageView

- (id)initWithImage:(id)image
{
    hosts::peerAs<sim::ImageView>(self)->setImage(hosts::peerAs<sim::Image>(image));
    return self;
}

- (void)setTintColor:(id)color
{
    hosts::peerAs<sim::ImageView>(self)->tint = componentsOf(color);
}

@end

// Layers.

@implementation CALayer

- (void)setMasksToBounds:(BOOL)masks
{
    if (sim::View* const view = hosts::peerAs<sim::LayerObject>(self)->view)
        view->layer.masksToBounds = masks;
}

- (void)setCornerRadius:(double)radius
{
    if (sim::View* const view = hosts::peerAs<sim::LayerObject>(self)->view)
        view->layer.cornerRadius = radius;
}

- (void)setContinuousCorners:(BOOL)continuous
{
    if (sim::View* const view = hosts::peerAs<sim::LayerObject>(self)->view)
        view->layer.continuousCorners = continuous;
}

- (void)setBorderWidth:(double)width
{
    if (sim::View* const view = hosts::peerAs<sim::LayerObject>(self)->view)
        view->layer.borderWidth = width;
}

- (void)setBorderColor:(void*)color
{
    if (sim::View* const view = hosts::peerAs<sim::LayerObject>(self)->view)
        view->layer.borderColor = componentsOf(static_cast<id>(color));
}

- (void)removeAllAnimations
{
    if (sim::View* const view = hosts::peerAs<sim::LayerObject>(self)->view)
        hosts::device().runLoop->removeAllAnimations(*view);
}

@end
