/// Views of the simulated process: geometry, layers, labels, images, backdrops, windows and recognisers.
///
/// Model values only: what is set is the value. What a running animation shows in between is Presentation.h's
/// business. Setters of animatable properties tell the animation whose block is running.
#pragma once

#include "simulator/device/Device.h"
#include "simulator/device/Geometry.h"

#include <array>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace panotra::sim {

/// Red, green, blue, alpha from 0 to 1.
using Rgba = std::array<double, 4>;

struct Color : HostObject {
    Rgba rgba {};
    explicit Color(const Rgba& components)
        : rgba(components)
    {
    }
};

struct Font : HostObject {
    double size = 17; ///< points
    std::string weight = "regular"; ///< "light" for UIFontWeightLight
    Font(double points, std::string weightName)
        : size(points)
        , weight(std::move(weightName))
    {
    }
};

/// The name of the weight that is nearest on the platform's scale from -1 to 1.
const char* nearestWeightName(double weight);

struct Image : HostObject {
    std::string baseName;
    bool isTemplate = false;
    std::string file; ///< the picture of the scale nearest to the screen's; empty: a single pixel
    Image(std::string imageName, std::string path)
        : baseName(std::move(imageName))
        , file(std::move(path))
    {
    }
};

/// What draws a view's edges. Lives inside its view and is kept alive by it.
struct Layer {
    bool masksToBounds = false;
    double cornerRadius = 0;
    bool continuousCorners = false;
    double borderWidth = 0;
    std::optional<Rgba> borderColor;
};

struct View;

/// The object as which a view's layer is known to programs. A layer whose view is gone does nothing.
struct LayerObject : HostObject {
    View* view; ///< not counted; null once the view is gone
    explicit LayerObject(View& owner)
        : view(&owner)
    {
    }
};

struct PanRecognizer;

struct View : HostObject {
    Point center;
    Size bounds;
    Transform transform;
    double alpha = 1;
    bool hidden = false;
    bool interaction = true;
    std::optional<Rgba> background;
    Layer layer;
    std::int64_t tag = 0;
    View* superview = nullptr; ///< not counted
    std::vector<View*> subviews; ///< back to front, counted
    std::vector<PanRecognizer*> recognizers; ///< counted

    ~View() override;

    /// The box around the transformed bounds, about the centre.
    Rect frame() const;
    /// Puts the centre at the middle of `frame` and fits the bounds to it through the inverse of the transform; a
    /// transform that flattens the view leaves the bounds as they are.
    virtual void setFrame(Rect frame);
    void setCenter(Point point);
    void setTransform(Transform value);
    void setAlpha(double value);
    void setBackground(const std::optional<Rgba>& color);
    virtual void setHidden(bool value);

    /// In front of the others; a view that is in another place of a tree leaves it. A view is never added to
    /// itself or below itself.
    void addSubview(View& view);
    void bringSubviewToFront(View& view);
    void removeFromSuperview();
    /// This view or one above it is `view`.
    bool isInside(const View& view) const;

    void addRecognizer(PanRecognizer& recognizer);
    void removeRecognizer(PanRecognizer& recognizer);
    /// The same object every time. Borrowed.
    LayerObject& layerObject();

    /// The platform's hit test; `point` in this view's own coordinates.
    View* hitTest(Point point);
    /// Fits an autosizing backdrop or a content view to its superview; other views do nothing.
    virtual void superviewBoundsChanged() { }
    /// The point of the superview in this view's own coordinates; none if the transform has no inverse.
    std::optional<Point> fromSuperview(Point point) const;
    /// The point of the screen in this view's own coordinates, through the transforms as they stand; none if one
    /// of them has no inverse.
    std::optional<Point> fromScreen(Point point) const;

protected:
    /// Without telling any animation, as everything that follows from another change.
    void applyFrame(Rect frame);

private:
    void setBounds(Size size);

    LayerObject* m_layerObject = nullptr; ///< counted; made when it is first asked for
};

struct Window : View {
    double level = 0;
    bool shown = false; ///< makeKeyAndVisible was called
    HostObject* scene = nullptr; ///< counted
    ~Window() override;
    void setScene(HostObject* value);
    /// Traced as `windowShown`. Where windows belong to scenes, one without a scene is not shown.
    void makeKeyAndVisible();
};

struct Label : View {
    std::optional<std::string> text;
    std::optional<Rgba> textColor;
    double fontSize = 17;
    std::string fontWeight = "regular";
    std::int64_t alignment = 0; ///< the platform's number
    Label();
};

struct ImageView : View {
    Image* image = nullptr; ///< counted
    std::optional<Rgba> tint;
    ImageView();
    ~ImageView() override;
    void setImage(Image* value);
};

/// The style and quality with which a backdrop is made.
struct BackdropSettings : HostObject {
    std::int64_t style = 0;
    std::int64_t quality = 0;
    BackdropSettings(std::int64_t styleCode, std::int64_t graphicsQuality)
        : style(styleCode)
        , quality(graphicsQuality)
    {
    }
};

/// `_UIBackdropView`: a material with a content view in front of it.
struct BackdropView : View {
    std::int64_t style = 0;
    std::int64_t quality = 0;
    bool autosizes = false;
    std::optional<double> blurRadius; ///< points
    View* content = nullptr; ///< one of the subviews
    View* effect = nullptr; ///< counted; in no tree: its alpha is the material's
    BackdropView();
    ~BackdropView() override;
    void setBlurRadius(double radius);
    void superviewBoundsChanged() override;
};

struct PanRecognizer : HostObject {
    HostObject* target = nullptr; ///< not counted
    const HostSelector* action = nullptr;
    std::int64_t state = 0; ///< the platform's number
    View* view = nullptr; ///< not counted
    /// Where the finger is: at this x in whatever view is asked for, or else on the screen.
    std::optional<double> fixedX;
    Point screenPoint;

    PanRecognizer(HostObject* actionTarget, const HostSelector* actionSelector)
        : target(actionTarget)
        , action(actionSelector)
    {
    }
    /// Goes into the state and tells the target. A recogniser without a view does nothing.
    void send(std::int64_t newState);
    /// The finger in the view's own coordinates as they stand; (0, 0) where a transform has no inverse. Null: on
    /// the screen.
    Point locationIn(const View* asked) const;
};

} // namespace panotra::sim
