/// Pictures of the resource bundle.
#include "platform/UIImage.h"

#include "platform/ios/Classes.h"
#include "platform/ios/Send.h"
#include "platform/ios/private/UIKit.h"

#include <dlfcn.h>

namespace panotra {

using namespace ios;

/// Without a bundle the platform would look into the process's own.
UIImage UIImage::imageNamed(const NSString& name, const NSBundle& bundle) noexcept
{
    if (!name || !bundle)
        return nullptr;
    return ask<UIImage>(classes::UIImage, selectors::imageNamedInBundle, name.get(), bundle.get());
}

UIImage UIImage::imageWithRenderingMode(std::int64_t mode) const noexcept
{
    return ask<UIImage>(get(), selectors::imageWithRenderingMode, static_cast<NSInteger>(mode));
}

/// A function, not a method, and the only one of UIKit's: it is found by name, so that the library can be loaded into
/// a process without UIKit.
NSData UIImagePNGRepresentation(const UIImage& image) noexcept
{
    using Function = id (*)(id);
    const auto function = reinterpret_cast<Function>(dlsym(RTLD_DEFAULT, "UIImagePNGRepresentation"));
    if (!image || function == nullptr)
        return nullptr;
    return retained<NSData>(shielded([&] { return function(image.get()); }));
}

UIImageView UIImageView::initWithImage(const UIImage& image) noexcept
{
    return create<UIImageView>(classes::UIImageView, selectors::initWithImage, image.get());
}

void UIImageView::setTintColor(const UIColor& color) const noexcept
{
    send(get(), selectors::setTintColor, color.get());
}

} // namespace panotra
