/// Views of the simulated process: geometry, layers, labels, images, backdrops, windows and recognisers.
///
/// Model values only: what is set is the value. What a running animation shows in between is the business of
/// whoever draws (RunLoop::animations). Setters of animatable properties tell the run loop.
#pragma once

#include "simulator/device/Device.h"

#include <array>
#include <vector>

namespace panotra::sim {

struct Point {
    double x = 0, y = 0;
};
struct Size {
    double width = 0, height = 0;
};
struct Rect {
    double x = 0, y = 0, width = 0, height = 0;
};
/// x' = a·x + c·y + tx, y' = b·x + d·y + ty.
struct Transform {
    double a = 1, b = 0, c = 0, d = 1, tx = 0, ty = 0;
};

struct Color : HostObject {
    std::array<double, 4> rgba {}; ///< 0 to 1
};

struct Font : HostObject {
    double size = 17;
    std::string weight = "regular"; ///< "light" for UIFontWeightLight
};

struct Image : HostObject {
    std::string baseName;
    bool isTemplate = false;
    std::string file; ///< of the bundle, the scale nearest to the screen's
};

/// What draws a view's edges. Lives inside its view and is kept alive by it.
struct Layer {
    bool masksToBounds = false;
    double cornerRadius = 0;
    bool continuousCorners = false;
    double borderWidth = 0;
    std::optional<std::array<double, 4>> borderColor;
};

struct PanRecognizer;

struct View : HostObject {
    Point center;
    Size bounds;
    Transform transform;
    double alpha = 1;
    bool hidden = false;
    bool interaction = true;
    std::optional<std::array<double, 4>> background;
    Layer layer;
    std::int64_t tag = 0;
    View* superview = nullptr; ///< not counted
    std::vector<View*> subviews; ///< back to front, counted
    std::vector<PanRecognizer*> recognizers; ///< counted

    ~View() override;

    Rect frame() const;
    void setFrame(Rect frame);
    void setCenter(Point point);
    void setTransform(Transform value);
    void setAlpha(double value);
    void addSubview(View& view);
    void bringSubviewToFront(View& view);
    void removeFromSuperview();
    /// The platform's hit test; `point` in this view's own coordinates.
    View* hitTest(Point point);
    /// Fits an autosizing backdrop to its superview; plain views do nothing.
    virtual void superviewBoundsChanged() { }
    /// The point of the superview in this view's own coordinates; none if the transform has no inverse.
    std::optional<Point> fromSuperview(Point point) const;

protected:
    void setBounds(Size size);
    virtual void boundsChanged();
};

struct Window : View {
    double level = 0;
    bool shown = false; ///< makeKeyAndVisible was called
};

struct Label : View {
    std::optional<std::string> text;
    std::optional<std::array<double, 4>> textColor;
    double fontSize = 17;
    std::string fontWeight = "regular";
    std::int64_t alignment = 0;
    Label();
};

struct ImageView : View {
    Image* image = nullptr; ///< counted
    std::optional<std::array<double, 4>> tint;
    ImageView();
    ~ImageView() override;
};

/// `_UIBackdropView`: a material with a content view in front of it.
struct BackdropView : View {
    std::int64_t style = 0;
    std::int64_t quality = 0;
    bool autosizes = false;
    std::optional<double> blurRadius;
    View* content = nullptr; ///< one of the subviews
    View* effect = nullptr; ///< counted; in no tree: its alpha is the material's
    BackdropView();
    ~BackdropView() override;
    void setBlurRadius(double radius);
    void superviewBoundsChanged() override;

protected:
    void boundsChanged() override;
};

struct PanRecognizer : HostObject {
    HostObject* target = nullptr; ///< not counted
    const HostSelector* action = nullptr;
    std::int64_t state = 0;
    View* view = nullptr; ///< not counted
    /// Where the finger is: in the view's own coordinates as they stand, or on the screen.
    std::optional<double> fixedX;
    Point screenPoint;
    void send(std::int64_t newState);
};

} // namespace panotra::sim
