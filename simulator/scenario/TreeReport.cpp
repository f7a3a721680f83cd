/// Tables of fields, one for each kind of view.
#include "simulator/scenario/TreeReport.h"

#include "simulator/device/HomeScreen.h"
#include "simulator/device/Services.h"
#include "simulator/device/View.h"
#include "simulator/scenario/ReportField.h"

#include <nlohmann/json.hpp>

#include <array>

namespace panotra::sim {

namespace {

struct ViewInTree {
    Device& device;
    View& view;
};

template <auto member> Json viewMember(const ViewInTree& node)
{
    return node.view.*member;
}

using LayerField = ReportField<Layer>;

constexpr std::array layerFields {
    LayerField { "masksToBounds", "what lies outside it is cut off", "true", memberOf<&Layer::masksToBounds> },
    LayerField { "cornerRadius", "in points", "23.56", memberOf<&Layer::cornerRadius> },
    LayerField {
        "continuousCorners", "the corners are rounded the newer way", "true", memberOf<&Layer::continuousCorners> },
    LayerField { "borderWidth", "in points", "0.0", memberOf<&Layer::borderWidth> },
    LayerField { "borderColor", "red, green, blue, alpha; null for none", "null",
        [](const Layer& layer) {
            return orNull(layer.borderColor);
        } },
};

using ViewField = ReportField<ViewInTree>;

constexpr std::array viewFields {
    ViewField { "name", "the field that held it first; null for none", "\"_volumeView1\"",
        [](const ViewInTree& node) {
            const std::string* const name = node.device.nameOf(&node.view);
            return name != nullptr ? Json(*name) : Json();
        } },
    ViewField { "class", "its class", "\"PNOVolumeView\"",
        [](const ViewInTree& node) -> Json {
            return node.view.isa->name;
        } },
    ViewField { "frame", "x, y, width, height in its superview", "[0.0,0.0,375.0,667.0]",
        [](const ViewInTree& node) {
            const auto frame = node.view.frame();
            return Json::array({ frame.x, frame.y, frame.width, frame.height });
        } },
    ViewField { "bounds", "width and height before its transform", "[375.0,667.0]",
        [](const ViewInTree& node) {
            return Json::array({ node.view.bounds.width, node.view.bounds.height });
        } },
    ViewField { "center", "x and y in its superview", "[187.5,333.5]",
        [](const ViewInTree& node) {
            return Json::array({ node.view.center.x, node.view.center.y });
        } },
    ViewField { "transform", "a, b, c, d, tx, ty", "[1.0,0.0,0.0,1.0,0.0,0.0]",
        [](const ViewInTree& node) {
            const auto& transform = node.view.transform;
            return Json::array({ transform.a, transform.b, transform.c, transform.d, transform.tx, transform.ty });
        } },
    ViewField { "alpha", "0 to 1", "1.0", viewMember<&View::alpha> },
    ViewField { "hidden", "it and all below it are not shown", "false", viewMember<&View::hidden> },
    ViewField { "interaction", "it takes touches", "true", viewMember<&View::interaction> },
    ViewField { "background", "red, green, blue, alpha; null for none", "null",
        [](const ViewInTree& node) {
            return orNull(node.view.background);
        } },
    ViewField { "layer", "the layer's fields, see below", "",
        [](const ViewInTree& node) {
            return reportOf(layerFields, node.view.layer);
        } },
};

using WindowField = ReportField<Window>;

constexpr std::array windowFields {
    WindowField { "level", "above which other windows it stands", "2100.0", memberOf<&Window::level> },
};

using LabelField = ReportField<Label>;

constexpr std::array labelFields {
    LabelField { "text", "null until it is set", "\"56%\"",
        [](const Label& label) {
            return orNull(label.text);
        } },
    LabelField { "textColor", "red, green, blue, alpha; null until it is set", "[0.0,0.0,0.0,1.0]",
        [](const Label& label) {
            return orNull(label.textColor);
        } },
    LabelField { "fontSize", "in points", "14.0", memberOf<&Label::fontSize> },
    LabelField { "fontWeight", "in a word", "\"light\"", memberOf<&Label::fontWeight> },
    LabelField { "alignment", "the platform's number: 0 left, 1 centred, 2 right", "1", memberOf<&Label::alignment> },
};

using ImageField = ReportField<ImageView>;

constexpr std::array imageFields {
    ImageField { "image", "the base name of its picture; null for none", "\"speaker\"",
        [](const ImageView& view) {
            return view.image != nullptr ? Json(view.image->baseName) : Json();
        } },
    ImageField { "template", "the picture is a shape to be tinted", "true",
        [](const ImageView& view) -> Json {
            return view.image != nullptr && view.image->isTemplate;
        } },
    ImageField { "tint", "red, green, blue, alpha; null until it is set", "[0.0,0.0,0.0,1.0]",
        [](const ImageView& view) {
            return orNull(view.tint);
        } },
};

using BackdropField = ReportField<BackdropView>;

constexpr std::array backdropFields {
    BackdropField { "style", "the platform's number of its material", "2010", memberOf<&BackdropView::style> },
    BackdropField { "quality", "the platform's number of its quality", "100", memberOf<&BackdropView::quality> },
    BackdropField { "autosizes", "it fills its superview", "true", memberOf<&BackdropView::autosizes> },
    BackdropField { "blurRadius", "in points; null until it is set", "null",
        [](const BackdropView& view) {
            return orNull(view.blurRadius);
        } },
    BackdropField { "effectAlpha", "the alpha of its material alone", "1.0",
        [](const BackdropView& view) -> Json {
            return view.effect->alpha;
        } },
};

constexpr std::array sliderNodeFields {
    ViewField { "tag", "its slot", "1", viewMember<&View::tag> },
    ViewField { "canGoToZero", "it may be dragged down to 0", "false",
        [](const ViewInTree& node) {
            return node.device.classes->scalarForKey(&node.view, "_canGoToZero");
        } },
    ViewField { "volume", "its level", "0.5625",
        [](const ViewInTree& node) {
            return node.device.classes->scalarForKey(&node.view, "volume");
        } },
};

/// What a view has because of its class.
void addClassFields(Json& report, const ViewInTree& node)
{
    if (const auto* const window = dynamic_cast<Window*>(&node.view))
        addFields(report, windowFields, *window);
    else if (const auto* const label = dynamic_cast<Label*>(&node.view))
        addFields(report, labelFields, *label);
    else if (const auto* const imageView = dynamic_cast<ImageView*>(&node.view))
        addFields(report, imageFields, *imageView);
    else if (const auto* const backdrop = dynamic_cast<BackdropView*>(&node.view))
        addFields(report, backdropFields, *backdrop);
    else if (node.view.isa->inheritsFrom("PNOVolumeView"))
        addFields(report, sliderNodeFields, node);
}

Json nodeReport(Device& device, View& view)
{
    const ViewInTree node { device, view };
    auto report = reportOf(viewFields, node);
    addClassFields(report, node);
    report["subviews"] = Json::array();
    for (auto* const subview : view.subviews)
        report["subviews"].push_back(nodeReport(device, *subview));
    return report;
}

template <typename Source, std::size_t count>
NodeNotes notesOf(std::string_view of, const std::array<ReportField<Source>, count>& fields)
{
    NodeNotes notes { of, {} };
    addNotes(notes.fields, "", fields);
    return notes;
}

} // namespace

Json treeReport(Device& device)
{
    auto* const window = dynamic_cast<View*>(device.home->window());
    return { { "root", window != nullptr ? nodeReport(device, *window) : Json() } };
}

std::vector<NodeNotes> treeNotes()
{
    auto ofViews = notesOf("every view", viewFields);
    ofViews.fields.push_back({ "subviews", "the nodes of its subviews, back to front", "[]" });
    return {
        std::move(ofViews),
        notesOf("its `layer`", layerFields),
        notesOf("the window", windowFields),
        notesOf("a label", labelFields),
        notesOf("an image view", imageFields),
        notesOf("a backdrop", backdropFields),
        notesOf("a slider", sliderNodeFields),
    };
}

} // namespace panotra::sim
