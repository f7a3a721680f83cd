/// From the view tree to what is to be drawn.
#include "simulator/render/Scene.h"

#include "facts/AudioNames.h"
#include "simulator/device/HomeScreen.h"
#include "simulator/device/Presentation.h"
#include "simulator/device/Services.h"
#include "simulator/device/Touches.h"
#include "simulator/render/HomePicture.h"
#include "simulator/render/Orientation.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <utility>

namespace panotra::render {
namespace {

using sim::AnimatedProperty;

constexpr Rgba black { 0, 0, 0, 1 };
/// The platform's tint of template images that nobody gave one.
constexpr Rgba defaultTint { 0, 0.478, 1, 1 };
/// Behind the status bar while there is a call.
constexpr Rgba ongoingCall { 0.16, 0.65, 0.29, 1 };
constexpr Rgba underFinger { 0, 0, 0, 0.4 };

/// What a view shows now of the properties that animations move.
struct Presented {
    Point center;
    Size bounds;
    Transform transform;
    double alpha;
    std::optional<Rgba> background;

    Presented(const sim::RunLoop& runLoop, const sim::View& view)
    {
        const auto value = [&, now = runLoop.now()](AnimatedProperty property) {
            return presentationValue(runLoop, view, property, now);
        };
        const auto centerNow = value(AnimatedProperty::Center);
        center = { centerNow[0], centerNow[1] };
        const auto boundsNow = value(AnimatedProperty::Bounds);
        bounds = { boundsNow[0], boundsNow[1] };
        const auto matrix = value(AnimatedProperty::Transform);
        transform = { matrix[0], matrix[1], matrix[2], matrix[3], matrix[4], matrix[5] };
        alpha = std::min(value(AnimatedProperty::Alpha)[0], 1.0);
        const auto color = value(AnimatedProperty::Background);
        if (color[3] > 0)
            background = { color[0], color[1], color[2], color[3] };
    }

    /// From the view's own coordinates to its superview's.
    Transform toSuperview() const
    {
        const Transform turned = compose(transform, translation(-bounds.width / 2, -bounds.height / 2));
        return compose(translation(center.x, center.y), turned);
    }
};

/// How many pixels a unit of length is long, on average over directions.
double lengthFactor(const Transform& transform)
{
    return std::sqrt(std::abs(transform.a * transform.d - transform.b * transform.c));
}

TextAlignment textAlignment(std::int64_t platformNumber)
{
    switch (platformNumber) {
    case 1:
        return TextAlignment::Center;
    case 2:
        return TextAlignment::Right;
    default:
        return TextAlignment::Left;
    }
}

class SceneBuilder {
public:
    SceneBuilder(const sim::Device& device, const PixelRect& screen)
        : m_device(device)
        , m_clip { screen, std::nullopt, {} }
    {
    }

    void addSurroundings();
    void addBareWallpaper();
    void addView(const sim::View& view, const Transform& toPixels);
    void addBanner();
    void addIndicator();
    Scene take() { return std::move(m_scene); }

private:
    struct ClipState {
        PixelRect extent;
        std::optional<Shape> shape; ///< of the innermost clip
        std::vector<Shape> edges; ///< of the clips that may cut something off
        bool isWhole = false; ///< as that of a ClipItem
    };

    void addPressedTile();
    /// From the interface as it is turned, its origin at its top left, to pixels.
    Transform interfaceToPixels() const;
    void add(Item::Content content, const Shape& shape);
    void addContents(const sim::View& view, const Presented& shown, const Shape& shape);
    void addBackdrop(const sim::BackdropView& view, const Shape& shape);
    void addBorder(const sim::Layer& layer, const Shape& shape);
    /// What `addInside` adds, between a beginning and an end; nothing where it adds nothing.
    template <typename AddInside>
    void enclose(Item::Content begin, Item::Content end, const Shape& shape, AddInside addInside);

    const sim::Device& m_device;
    ClipState m_clip;
    Scene m_scene;
};

void SceneBuilder::add(Item::Content content, const Shape& shape)
{
    const PixelRect extent = intersection(shape.extent(), m_clip.extent);
    if (!extent.isEmpty())
        m_scene.push_back({ std::move(content), shape, extent, m_clip.shape && shape.hasSameBox(*m_clip.shape) });
}

template <typename AddInside>
void SceneBuilder::enclose(Item::Content begin, Item::Content end, const Shape& shape, AddInside addInside)
{
    const std::size_t first = m_scene.size();
    m_scene.push_back({ std::move(begin), shape, {} });
    addInside();
    if (m_scene.size() == first + 1) {
        m_scene.pop_back();
        return;
    }
    PixelRect extent;
    for (std::size_t i = first + 1; i < m_scene.size(); ++i)
        extent = united(extent, m_scene[i].extent);
    m_scene[first].extent = extent;
    m_scene.push_back({ std::move(end), shape, extent });
}

Transform SceneBuilder::interfaceToPixels() const
{
    const sim::Screen& screen = *m_device.screen;
    const auto [width, height] = screen.currentSize();
    const Transform turned = compose(translation(screen.width / 2, screen.height / 2),
        compose(rotation(interfaceAngle(screen.orientation)), translation(-width / 2, -height / 2)));
    return compose(scaling(screen.scale), turned);
}

/// The time at which the device's clock starts, minutes after midnight.
constexpr std::int64_t startTimeInMinutes = 9 * 60 + 41;

std::string clockText(double seconds)
{
    constexpr std::int64_t minutesADay = 24 * 60;
    const double minutes = std::fmod(std::floor(seconds / 60), minutesADay);
    const std::int64_t now = (startTimeInMinutes + static_cast<std::int64_t>(minutes)) % minutesADay;
    const std::string minute = std::to_string(now % 60);
    return std::to_string(now / 60) + (minute.size() < 2 ? ":0" : ":") + minute;
}

void SceneBuilder::addBareWallpaper()
{
    const sim::Screen& screen = *m_device.screen;
    add(HomeItem { true }, { scaling(screen.scale), { screen.width, screen.height } });
}

void SceneBuilder::addSurroundings()
{
    const sim::Screen& screen = *m_device.screen;
    const Transform toPixels = scaling(screen.scale);
    add(HomeItem { false, screen.orientation }, { toPixels, { screen.width, screen.height } });
    addPressedTile();
    if (screen.statusBarHidden)
        return;
    // The bar lies along the top as the interface is turned, its middle where the host says it is.
    const double width = screen.currentSize().first;
    const auto [centerX, centerY] = screen.currentStatusBarCenter();
    const Transform place = translation(centerX - width / 2, centerY - statusBarHeight / 2);
    const Shape bar { compose(interfaceToPixels(), place), { width, statusBarHeight } };
    if (m_device.sound->categoryInUse() == category::phoneCall)
        add(FillItem { ongoingCall }, bar);
    add(StatusBarItem { clockText(m_device.runLoop->now()) }, bar);
}

/// A tile of the home screen gives under the finger.
void SceneBuilder::addPressedTile()
{
    const auto finger = m_device.touches->fingerBehindMixer();
    if (!finger)
        return;
    const sim::Screen& screen = *m_device.screen;
    const auto [width, height] = screen.currentSize();
    const auto fromPixels = sim::inverse(interfaceToPixels());
    if (!fromPixels)
        return;
    const Point inPixels { finger->x * screen.scale, finger->y * screen.scale };
    const auto tile = tileAt({ width, height }, apply(*fromPixels, inPixels));
    if (!tile)
        return;
    Shape shape = *tile;
    shape.transform = compose(interfaceToPixels(), tile->transform);
    add(FillItem { underFinger }, shape);
}

/// What a notification shows of itself, below the mixer: a plate that comes down from above.
void SceneBuilder::addBanner()
{
    const auto& banner = m_device.home->banner;
    const double descent = banner ? banner->descentAt(m_device.runLoop->now()) : 0;
    if (!(descent > 0))
        return;
    constexpr Material material { 20, 1.8, 1, { 0.97, 0.97, 0.97, 0.72 } };
    constexpr Rgba ink { 0.05, 0.05, 0.07, 1 };
    constexpr Rgba dim { 0.3, 0.3, 0.33, 1 };
    constexpr Rgba sign { 0.95, 0.45, 0.25, 1 };
    constexpr double rim = 8;
    constexpr double most = 380;
    constexpr double height = 60;
    constexpr double signSide = 36;
    constexpr double textLeft = 2 * 12 + signSide;
    constexpr double lineHeight = 18;
    constexpr double nowWidth = 40;

    const double width = std::min(m_device.screen->currentSize().first - 2 * rim, most);
    const double left = (m_device.screen->currentSize().first - width) / 2;
    const double top = -height + (height + rim) * descent;
    const Transform corner = compose(interfaceToPixels(), translation(left, top));
    const auto at = [&corner](double x, double y, Size size, double radius) {
        return Shape { compose(corner, translation(x, y)), size, radius, true };
    };
    add(BackdropItem { material, material.blurRadius * m_device.screen->scale, 1 }, at(0, 0, { width, height }, 14));
    add(FillItem { sign }, at(12, (height - signSide) / 2, { signSide, signSide }, 8));
    const double textWidth = width - textLeft - 12;
    add(TextItem { "Reminders", { 13, TextWeight::Medium, TextAlignment::Left }, ink },
        at(textLeft, 12, { textWidth - nowWidth, lineHeight }, 0));
    add(TextItem { "now", { 12, TextWeight::Regular, TextAlignment::Right }, dim },
        at(textLeft + textWidth - nowWidth, 12, { nowWidth, lineHeight }, 0));
    add(TextItem { "Water the plants", { 13, TextWeight::Regular, TextAlignment::Left }, ink },
        at(textLeft, 12 + lineHeight, { textWidth, lineHeight }, 0));
}

void SceneBuilder::addView(const sim::View& view, const Transform& toPixels)
{
    if (view.hidden)
        return;
    const Presented shown(*m_device.runLoop, view);
    if (!(shown.alpha > 0))
        return;
    const Shape shape { compose(toPixels, shown.toSuperview()), shown.bounds, view.layer.cornerRadius,
        view.layer.continuousCorners };
    const auto addAll = [&] {
        if (!view.layer.masksToBounds) {
            addContents(view, shown, shape);
            return;
        }
        const PixelRect inside = intersection(shape.extent(), m_clip.extent);
        if (inside.isEmpty())
            return;
        const ClipItem clip { std::ranges::all_of(m_clip.edges, [&](const Shape& edge) { return edge.holds(shape); }) };
        ClipState within { inside, shape, clip.isWhole ? std::vector<Shape>() : m_clip.edges, clip.isWhole };
        within.edges.push_back(shape);
        ClipState outside = std::exchange(m_clip, std::move(within));
        enclose(clip, ClipEndItem {}, shape, [&] { addContents(view, shown, shape); });
        m_clip = std::move(outside);
    };
    if (shown.alpha < 1)
        enclose(GroupItem { shown.alpha }, GroupEndItem { shown.alpha }, {}, addAll);
    else
        addAll();
}

void SceneBuilder::addContents(const sim::View& view, const Presented& shown, const Shape& shape)
{
    if (shown.background)
        add(FillItem { *shown.background }, shape);
    if (const auto* const backdrop = dynamic_cast<const sim::BackdropView*>(&view))
        addBackdrop(*backdrop, shape);
    if (const auto* const label = dynamic_cast<const sim::Label*>(&view); label != nullptr && label->text) {
        const TextWeight weight = label->fontWeight == "light" ? TextWeight::Light : TextWeight::Regular;
        add(TextItem { *label->text, { label->fontSize, weight, textAlignment(label->alignment) },
                label->textColor.value_or(black) },
            { shape.transform, shape.size });
    }
    const auto* const imageView = dynamic_cast<const sim::ImageView*>(&view);
    if (imageView != nullptr && imageView->image != nullptr && !imageView->image->file.empty()) {
        const sim::Image& image = *imageView->image;
        add(ImageItem { image.file, image.isTemplate, imageView->tint.value_or(defaultTint) },
            { shape.transform, shape.size });
    }
    for (const sim::View* const subview : view.subviews)
        addView(*subview, shape.transform);
    addBorder(view.layer, shape);
}

void SceneBuilder::addBackdrop(const sim::BackdropView& view, const Shape& shape)
{
    const sim::RunLoop& runLoop = *m_device.runLoop;
    const Presented effect(runLoop, *view.effect);
    const Material material = materialOfStyle(view.style);
    const double radius = view.blurRadius
        ? std::max(presentationValue(runLoop, view, AnimatedProperty::BlurRadius, runLoop.now())[0], 0.0)
        : material.blurRadius;
    const bool changesNothing = radius == 0 && material.keepsColors();
    if (view.effect->hidden || !(effect.alpha > 0) || changesNothing)
        return;
    add(BackdropItem { material, radius * lengthFactor(shape.transform), effect.alpha }, shape);
}

void SceneBuilder::addBorder(const sim::Layer& layer, const Shape& shape)
{
    const Rgba color = layer.borderColor.value_or(black);
    if (layer.borderWidth > 0 && color[3] > 0)
        add(BorderItem { layer.borderWidth, color, m_clip.isWhole && m_clip.shape == shape }, shape);
}

/// The host's own indicator: a plain square in the middle of the screen, with a speaker over a row of segments.
void SceneBuilder::addIndicator()
{
    const auto& indicator = m_device.home->indicator;
    const double opacity = indicator ? indicator->opacityAt(m_device.runLoop->now()) : 0;
    if (!(opacity > 0))
        return;
    constexpr Material material { 20, 1.8, 1, { 0.97, 0.97, 0.97, 0.5 } };
    constexpr Rgba ink { 0.16, 0.16, 0.18, 0.75 };
    constexpr Rgba unlit { 0, 0, 0, 0.22 };
    constexpr double side = 152;
    constexpr double signSide = 84;
    constexpr int segments = 16;
    constexpr double segmentWidth = 7;
    constexpr double pitch = 8;
    constexpr double segmentTop = 126;

    const auto [width, height] = m_device.screen->currentSize();
    const Transform corner = compose(interfaceToPixels(), translation((width - side) / 2, (height - side) / 2));
    const auto at = [&corner](double x, double y, Size size) {
        return Shape { compose(corner, translation(x, y)), size };
    };
    const Shape square { corner, { side, side }, 18, true };
    enclose(GroupItem { opacity }, GroupEndItem { opacity }, {}, [&] {
        add(BackdropItem { material, material.blurRadius * m_device.screen->scale, 1 }, square);
        add(SignItem { indicator->level > 0 ? "speaker" : "speaker-off", ink },
            at((side - signSide) / 2, (segmentTop - signSide) / 2, { signSide, signSide }));
        const double lit = std::round(indicator->level * segments);
        const double left = (side - segments * pitch + pitch - segmentWidth) / 2;
        for (int i = 0; i < segments; ++i)
            add(FillItem { i < lit ? ink : unlit }, at(left + i * pitch, segmentTop, { segmentWidth, segmentWidth }));
    });
}

/// From the coordinates in which a view stands to pixels.
Transform surroundingsToPixels(const sim::Device& device, const sim::View& view)
{
    Transform toPixels;
    for (const sim::View* around = view.superview; around != nullptr; around = around->superview)
        toPixels = compose(Presented(*device.runLoop, *around).toSuperview(), toPixels);
    return compose(scaling(device.screen->scale), toPixels);
}

} // namespace

PixelRect screenPixels(const sim::Device& device)
{
    const sim::Screen& screen = *device.screen;
    return Shape { scaling(screen.scale), { screen.width, screen.height } }.extent();
}

Scene sceneOf(const sim::Device& device)
{
    SceneBuilder builder(device, screenPixels(device));
    builder.addSurroundings();
    builder.addBanner();
    const auto* const window = dynamic_cast<const sim::Window*>(device.home->window());
    if (window != nullptr && window->shown)
        builder.addView(*window, scaling(device.screen->scale));
    builder.addIndicator();
    return builder.take();
}

Scene sceneOfView(const sim::Device& device, const sim::View& view)
{
    SceneBuilder builder(device, screenPixels(device));
    builder.addBareWallpaper();
    builder.addView(view, surroundingsToPixels(device, view));
    return builder.take();
}

Presence presenceOf(const sim::Device& device, const sim::View& view)
{
    const Presented shown(*device.runLoop, view);
    const Shape shape { compose(surroundingsToPixels(device, view), shown.toSuperview()), shown.bounds,
        view.layer.cornerRadius, view.layer.continuousCorners };
    return { shape, view.hidden ? 0 : std::max(shown.alpha, 0.0) };
}

} // namespace panotra::render
