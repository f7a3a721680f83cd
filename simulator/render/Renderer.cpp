/// From one frame to the next.
#include "simulator/render/Renderer.h"

#include "simulator/device/Services.h"
#include "simulator/render/Painter.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace panotra::render {
namespace {

constexpr int largestSide = 8192; ///< pixels

/// Whether the item's product is the same wherever in the scene it stands.
bool isDrawnAlone(const Item& item)
{
    return item.as<TextItem>() != nullptr || item.as<ImageItem>() != nullptr || item.as<SignItem>() != nullptr;
}

/// Compares a new scene with the one on the canvas, item by item. What differs is damaged, as it was and as it is
/// now; so is a backdrop with damage behind it, whole. The products of all others are kept, and so are those that
/// were drawn alone when a group begins or ends around them: setting all texts anew would take half a frame's time.
///
/// A group that only fades is as it was for what is in it: a backdrop in it sees what is behind as it always is, and
/// the group as a whole is kept while nothing in it changes.
class Comparison {
public:
    Comparison(const Scene& before, std::vector<Bitmap>& productsBefore, const Scene& now)
        : products(now.size())
    {
        for (std::size_t i = 0; i < now.size(); ++i) {
            const Item& item = now[i];
            const bool isOld = i < before.size();
            const bool isSame = isOld && before[i] == item;
            const bool fades = isOld && !isSame && beginsGroupAt(before[i], item);
            if (item.as<GroupItem>() != nullptr)
                m_groups.push_back({ i, isSame || fades });
            if (item.as<GroupEndItem>() != nullptr)
                endGroup(isOld && before[i].as<GroupEndItem>() != nullptr, productsBefore);
            const bool seesDamage = item.as<BackdropItem>() != nullptr && damage.touches(item.extent);
            if (isSame && !seesDamage) {
                if (item.as<GroupItem>() == nullptr)
                    products[i] = std::move(productsBefore[i]);
                continue;
            }
            if (fades)
                continue; // its end is damaged, and whatever stands behind it in the scene
            noteChange();
            damage.add(item.extent);
            if (isOld)
                damage.add(before[i].extent);
            if (!isSame && isDrawnAlone(item))
                takeProduct(before, productsBefore, item, products[i]);
        }
        for (std::size_t i = now.size(); i < before.size(); ++i)
            damage.add(before[i].extent);
    }

    Damage damage;
    std::vector<Bitmap> products;

private:
    struct Group {
        std::size_t begin; ///< its place in both scenes
        bool isKept; ///< nothing in it has changed so far
    };

    static bool beginsGroupAt(const Item& before, const Item& now)
    {
        return before.as<GroupItem>() != nullptr && now.as<GroupItem>() != nullptr && before.extent == now.extent;
    }

    /// Of something in all groups that have begun and not ended.
    void noteChange()
    {
        for (Group& group : m_groups)
            group.isKept = false;
    }

    void endGroup(bool endedHere, std::vector<Bitmap>& productsBefore)
    {
        const Group group = m_groups.back();
        m_groups.pop_back();
        if (group.isKept && endedHere)
            products[group.begin] = std::move(productsBefore[group.begin]);
    }

    static void takeProduct(const Scene& before, std::vector<Bitmap>& productsBefore, const Item& item, Bitmap& product)
    {
        const auto place = std::ranges::find(before, item) - before.begin();
        if (place < std::ssize(before))
            product = std::move(productsBefore[static_cast<std::size_t>(place)]);
    }

    std::vector<Group> m_groups; ///< those around the item, outermost first
};

} // namespace

std::optional<std::string> whyTooLargeOrSmall(Size points, double pixelsPerPoint)
{
    const auto fits = [](double side) {
        return side >= 1 && side <= largestSide;
    };
    if (fits(points.width * pixelsPerPoint) && fits(points.height * pixelsPerPoint))
        return std::nullopt;
    return "the screen has sides that are not 1 to " + std::to_string(largestSide) + " pixels";
}

Renderer::Renderer(Wallpaper wallpaper, Typesetter typesetter)
    : m_wallpaper(std::move(wallpaper))
    , m_typesetter(std::move(typesetter))
{
}

Renderer::Frame Renderer::draw(const sim::Device& device)
{
    return draw(device, sceneOf(device));
}

Renderer::Frame Renderer::drawView(const sim::Device& device, const sim::View& view)
{
    return draw(device, sceneOfView(device, view));
}

void Renderer::setWallpaper(Wallpaper wallpaper)
{
    m_wallpaper = std::move(wallpaper);
    m_canvas = {};
}

Renderer::Frame Renderer::draw(const sim::Device& device, Scene scene)
{
    const PixelRect screen = screenPixels(device);
    if (m_canvas.extent() != screen || m_pixelsPerPoint != device.screen->scale) {
        m_canvas = Bitmap(screen.width, screen.height, PixelFormat::Opaque);
        m_pixelsPerPoint = device.screen->scale;
        m_scene.clear();
        m_products.clear();
    }
    Comparison comparison(m_scene, m_products, scene);
    if (!comparison.damage.isEmpty()) {
        const PaintBox box { m_wallpaper, m_typesetter, m_images, m_pixelsPerPoint };
        Painter(box, scene, comparison.products, comparison.damage, m_canvas).paint();
    }
    m_scene = std::move(scene);
    m_products = std::move(comparison.products);
    return { m_canvas, comparison.damage.rectangles() };
}

} // namespace panotra::render
