/// A node a view, its fields in the order of the trace.
#include "simulator/scenario/TreeReport.h"

#include "simulator/device/HomeScreen.h"
#include "simulator/device/Services.h"
#include "simulator/device/View.h"

namespace panotra::sim {

namespace {

Json colorReport(const std::optional<std::array<double, 4>>& color)
{
    return color ? Json(*color) : Json();
}

Json layerReport(const Layer& layer)
{
    return {
        { "masksToBounds", layer.masksToBounds },
        { "cornerRadius", layer.cornerRadius },
        { "continuousCorners", layer.continuousCorners },
        { "borderWidth", layer.borderWidth },
        { "borderColor", colorReport(layer.borderColor) },
    };
}

/// What a view has because of its class.
Json classReport(Device& device, View& view)
{
    if (const auto* const window = dynamic_cast<Window*>(&view))
        return { { "level", window->level } };
    if (const auto* const label = dynamic_cast<Label*>(&view)) {
        return {
            { "text", label->text ? Json(*label->text) : Json() },
            { "textColor", colorReport(label->textColor) },
            { "fontSize", label->fontSize },
            { "fontWeight", label->fontWeight },
            { "alignment", label->alignment },
        };
    }
    if (const auto* const imageView = dynamic_cast<ImageView*>(&view)) {
        const auto* const image = imageView->image;
        return {
            { "image", image != nullptr ? Json(image->baseName) : Json() },
            { "template", image != nullptr && image->isTemplate },
            { "tint", colorReport(imageView->tint) },
        };
    }
    if (const auto* const backdrop = dynamic_cast<BackdropView*>(&view)) {
        return {
            { "style", backdrop->style },
            { "quality", backdrop->quality },
            { "autosizes", backdrop->autosizes },
            { "blurRadius", backdrop->blurRadius ? Json(*backdrop->blurRadius) : Json() },
            { "effectAlpha", backdrop->effect->alpha },
        };
    }
    if (view.isa->inheritsFrom("PNOVolumeView")) {
        return {
            { "tag", view.tag },
            { "canGoToZero", device.classes->scalarForKey(&view, "_canGoToZero") },
            { "volume", device.classes->scalarForKey(&view, "volume") },
        };
    }
    return Json::object();
}

Json nodeReport(Device& device, View& view)
{
    const auto frame = view.frame();
    const auto& transform = view.transform;
    Json node {
        { "name", device.nameOf(&view) },
        { "class", view.isa->name },
        { "frame", Json::array({ frame.x, frame.y, frame.width, frame.height }) },
        { "bounds", Json::array({ view.bounds.width, view.bounds.height }) },
        { "center", Json::array({ view.center.x, view.center.y }) },
        { "transform",
            Json::array({ transform.a, transform.b, transform.c, transform.d, transform.tx, transform.ty }) },
        { "alpha", view.alpha },
        { "hidden", view.hidden },
        { "interaction", view.interaction },
        { "background", colorReport(view.background) },
        { "layer", layerReport(view.layer) },
    };
    node.update(classReport(device, view));
    node["subviews"] = Json::array();
    for (auto* const subview : view.subviews)
        node["subviews"].push_back(nodeReport(device, *subview));
    return node;
}

} // namespace

Json treeReport(Device& device)
{
    auto* const window = dynamic_cast<View*>(device.home->window());
    return { { "root", window != nullptr ? nodeReport(device, *window) : Json() } };
}

} // namespace panotra::sim
