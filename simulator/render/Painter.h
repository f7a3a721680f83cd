/// Draws the items of a scene.
#pragma once

#include "simulator/render/Bitmap.h"
#include "simulator/render/Damage.h"
#include "simulator/render/ImageFiles.h"
#include "simulator/render/Scene.h"
#include "simulator/render/Typesetter.h"
#include "simulator/render/Wallpaper.h"

#include <span>
#include <vector>

namespace panotra::render {

/// What is the same from frame to frame.
struct PaintBox {
    const Wallpaper& wallpaper;
    const Typesetter& typesetter;
    ImageFiles& images;
    double pixelsPerPoint;
};

/// Draws the damaged part of a scene over what is on the canvas.
///
/// Items that are costly to draw leave a product, a bitmap of their extent: a blurred backdrop, the shape of a text.
/// One that is there already, from an earlier frame with the same item and, for a backdrop, the same pixels behind
/// it, is used again. A backdrop without one must be damaged whole.
class Painter {
public:
    Painter(const PaintBox& box, const Scene& scene, std::span<Bitmap> products, const Damage& damage, Bitmap& canvas);

    void paint();

private:
    /// The canvas, or a group on its way to it.
    struct Layer {
        Bitmap bitmap; ///< empty for the canvas
        PixelRect extent; ///< the part of the screen that it holds
        Handle<cairo_t> context; ///< in pixels of the screen
        Bitmap* product; ///< of the group, to be kept; null where it is not whole
    };

    std::size_t firstSeen() const;
    std::size_t endOf(std::size_t begin) const;
    cairo_t* context() { return m_layers.back().context.get(); }
    /// Leaves no clip but the damage: two round clips at once take cairo several times as long as one.
    void keepToDamage();
    /// Keeps to the item's own outline, then paints the context's source.
    void paintSource(const Item& item, double opacity);
    /// The layer that alone is seen in the area now: those above are clear there, and it hides those below. None
    /// where they mix.
    const Layer* soleLayerIn(const PixelRect& area) const;
    /// What is behind the area now, all layers put together.
    Bitmap flattened(const PixelRect& area) const;
    /// An empty bitmap of the item's extent, and a context on it in the units of its shape.
    template <typename Draw> Bitmap made(const Item& item, PixelFormat format, Draw draw) const;

    void paint(const HomeItem& home, const Item& item, Bitmap& product);
    void paint(const StatusBarItem& bar, const Item& item, Bitmap& product);
    void paint(const FillItem& fill, const Item& item, Bitmap& product);
    void paint(const BackdropItem& backdrop, const Item& item, Bitmap& product);
    void paint(const TextItem& text, const Item& item, Bitmap& product);
    void paint(const ImageItem& image, const Item& item, Bitmap& product);
    void paint(const SignItem& sign, const Item& item, Bitmap& product);
    void paint(const BorderItem& border, const Item& item, Bitmap& product);
    void paint(const ClipItem& clip, const Item& item, Bitmap& product);
    void paint(const ClipEndItem& end, const Item& item, Bitmap& product);
    void paint(const GroupItem& group, const Item& item, Bitmap& product);
    void paint(const GroupEndItem& end, const Item& item, Bitmap& product);
    void paintGroup(const Bitmap& bitmap, const PixelRect& extent, double opacity);

    const PaintBox& m_box;
    const Scene& m_scene;
    std::span<Bitmap> m_products;
    const Damage& m_damage;
    Bitmap& m_canvas;
    std::vector<Layer> m_layers; ///< the canvas first
};

} // namespace panotra::render
