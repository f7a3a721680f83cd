/// Blocks of text under their event's line.
#include "simulator/scenario/TextReports.h"

#include "simulator/scenario/TextFormat.h"
#include "simulator/scenario/TextTemplate.h"

#include <nlohmann/json.hpp>

#include <string_view>
#include <vector>

namespace panotra::sim {

namespace {

constexpr std::size_t blockIndent = timeColumnWidth + 2;
constexpr std::size_t titleWidth = 12;

/// "name value" for every field.
std::vector<std::string> namedValues(const Json& object)
{
    std::vector<std::string> items;
    for (const auto& [name, value] : object.items())
        items.push_back(shortValue(name) + ' ' + shortValue(value));
    return items;
}

std::string titled(std::string title, const std::vector<std::string>& items)
{
    title.resize(titleWidth, ' ');
    const std::size_t column = blockIndent + titleWidth;
    return '\n' + std::string(blockIndent, ' ') + title + (items.empty() ? "none" : wrapped("", items, column));
}

/// A title, and each item on a line of its own.
std::string titledLines(std::string title, const std::vector<std::string>& items)
{
    title.resize(titleWidth, ' ');
    std::string text;
    for (const auto& item : items) {
        text += '\n' + std::string(blockIndent, ' ') + title + item;
        title.assign(titleWidth, ' ');
    }
    return text.empty() ? titled(title, items) : text;
}

/// What sets a view apart; what a plain one has is not worth a word.
constexpr std::string_view viewWords
    = "{name} {class} {frame}[, transform {transform!(1, 0, 0, 1, 0, 0)}][, alpha {alpha!1}]{hidden?, hidden:}"
      "[, background {background}]";
constexpr std::string_view layerWords
    = "{masksToBounds?, clipped:}[, corners {cornerRadius!0}]{continuousCorners?, continuous:}"
      "[, border {borderWidth!0}][ in {borderColor}]";
/// The fields that only some classes have.
constexpr std::string_view classWords
    = "[, level {level}][, tag {tag}][, {volume%}]{canGoToZero?, may be silent:}[, \"{text}\"][, {fontSize} pt]"
      "[ {fontWeight}][ in {textColor}][, image {image}]{template?, template:}[ in {tint}][, style {style}]"
      "[, quality {quality}]{autosizes?, autosizes:}[, blur {blurRadius}][, effect alpha {effectAlpha!1}]";

/// Whether views of the class take no interaction unless told to.
bool isPassive(const Json& className)
{
    return className == "UILabel" || className == "UIImageView" || className == "_UIBackdropView";
}

void describeNode(const Json& node, std::size_t indent, std::string& text)
{
    text += '\n' + std::string(indent, ' ') + fillTemplate(viewWords, node);
    if (node.at("interaction") == isPassive(node.at("class")))
        text += fillTemplate("{interaction?, takes touches:, takes no touch}", node);
    text += fillTemplate(layerWords, node.at("layer")) + fillTemplate(classWords, node);
    for (const auto& subview : node.at("subviews"))
        describeNode(subview, indent + 2, text);
}

} // namespace

std::string describeState(const Json& event)
{
    std::vector<std::string> sliders;
    for (const auto& [slot, slider] : event.at("sliders").items()) {
        if (!slider.is_null())
            sliders.push_back(
                slot + "  " + fillTemplate("{volume%}, text {text}, scale {scale}, frame {frame}", slider));
    }
    std::vector<std::string> levels;
    for (const auto& [category, level] : event.at("system").items())
        levels.push_back(shortValue(category) + ' ' + percent(level));
    std::vector<std::string> pending;
    for (const auto& perform : event.at("pending"))
        pending.push_back(fillTemplate("{selector}[ {object}] at {due} s", perform));

    const auto& controller = event.at("controller");
    auto text = titled("globals", namedValues(event.at("globals")));
    text += titled("controller", controller.is_null() ? std::vector<std::string>() : namedValues(controller));
    text += titledLines("sliders", sliders) + titled("system", levels);
    for (const auto& [domain, values] : event.at("prefs").items())
        text += titled("prefs", { shortValue(domain) }) + titled("", namedValues(values));
    text += titled("pending", pending) + titled("animations", { fillTemplate("{running} running", event) });
    return text;
}

std::string describeTree(const Json& event)
{
    std::string text;
    const auto& root = event.at("root");
    if (root.is_null())
        return "no window";
    describeNode(root, blockIndent, text);
    return text;
}

} // namespace panotra::sim
