/// Pictures of the resource bundle.
#include "platform/UIImage.h"

#include "platform/simulated/Host.h"
#include "simulator/device/BundlePictures.h"

namespace panotra {

UIImage UIImage::imageNamed(const NSString& name, const NSBundle& bundle) noexcept
{
    const std::string* const text = sim::textOf(simulated::objectOf(name));
    if (text == nullptr || simulated::objectOf<sim::Bundle>(bundle) == nullptr)
        return nullptr;
    return simulated::create<UIImage, sim::Image>("UIImage", *text, sim::pictureFile(*sim::Device::current(), *text));
}

UIImage UIImage::imageWithRenderingMode(std::int64_t mode) const noexcept
{
    const auto* const image = simulated::objectOf<sim::Image>(*this);
    if (image == nullptr)
        return nullptr;
    UIImage copy = simulated::create<UIImage, sim::Image>("UIImage", image->baseName, image->file);
    if (auto* const copied = simulated::objectOf<sim::Image>(copy))
        copied->isTemplate = mode == UIImageRenderingModeAlwaysTemplate;
    return copy;
}

NSData UIImagePNGRepresentation(const UIImage& image) noexcept
{
    const auto* const given = simulated::objectOf<sim::Image>(image);
    return given == nullptr ? NSData() : simulated::create<NSData, sim::Data>("NSData", sim::pngOf(*given));
}

UIImageView UIImageView::initWithImage(const UIImage& image) noexcept
{
    const UIImageView view = simulated::create<UIImageView, sim::ImageView>("UIImageView");
    if (auto* const made = simulated::objectOf<sim::ImageView>(view))
        made->setImage(simulated::objectOf<sim::Image>(image));
    return view;
}

void UIImageView::setTintColor(const UIColor& color) const noexcept
{
    const auto* const value = simulated::objectOf<sim::Color>(color);
    if (auto* const view = simulated::objectOf<sim::ImageView>(*this))
        view->tint = value == nullptr ? std::nullopt : std::optional(value->rgba);
}

} // namespace panotra
