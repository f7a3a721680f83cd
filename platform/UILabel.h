/// UILabel and UIFont: one line of text.
#pragma once

#include "platform/NSString.h"
#include "platform/UIView.h"

namespace panotra {

/// NSTextAlignmentCenter: the platform's value.
inline constexpr std::int64_t NSTextAlignmentCenter = 1;
/// UIFontWeightLight: the platform's value on its scale from -1 to 1.
inline constexpr CGFloat UIFontWeightLight = CGFloat(-0.4);

class UIFont : public NSObject {
public:
    using NSObject::NSObject;

    static UIFont systemFontOfSize(CGFloat points, CGFloat weight) noexcept;
};

class UILabel : public UIView {
public:
    using UIView::UIView;

    static UILabel init() noexcept;

    void setText(const NSString& text) const noexcept;
    void setTextAlignment(std::int64_t alignment) const noexcept;
    void setFont(const UIFont& font) const noexcept;
    /// Null gives the label's default colour.
    void setTextColor(const UIColor& color) const noexcept;
};

} // namespace panotra
