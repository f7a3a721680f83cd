/// One line of text.
#include "platform/UILabel.h"

#include "platform/ios/Classes.h"
#include "platform/ios/Send.h"

namespace panotra {

using namespace ios;

UIFont UIFont::systemFontOfSize(CGFloat points, CGFloat weight) noexcept
{
    return ask<UIFont>(classes::UIFont, selectors::systemFontOfSize, points, weight);
}

UILabel UILabel::init() noexcept
{
    return create<UILabel>(classes::UILabel, selectors::init);
}

void UILabel::setText(const NSString& text) const noexcept
{
    send(get(), selectors::setText, text.get());
}

void UILabel::setTextAlignment(std::int64_t alignment) const noexcept
{
    send(get(), selectors::setTextAlignment, static_cast<NSInteger>(alignment));
}

void UILabel::setFont(const UIFont& font) const noexcept
{
    send(get(), selectors::setFont, font.get());
}

void UILabel::setTextColor(const UIColor& color) const noexcept
{
    send(get(), selectors::setTextColor, color.get());
}

} // namespace panotra
