/// The table of materials.
#include "simulator/render/Materials.h"

#include <algorithm>
#include <array>

namespace panotra::render {
namespace {

struct Row {
    std::int64_t style;
    Material material;
};

constexpr Material plainBlur { 20, 1, 1, { 0, 0, 0, 0 } };

/// Which are light and which are dark follows the titles that the mixer's skins put on them: black on 2010, pale on
/// 1001 and 2050. 2060 is the sliders' fill in every skin: its tint lies between, so that it darkens the light ones
/// and lightens the dark ones, and both kinds of title stay legible on it.
constexpr std::array rows {
    //    style   blur  saturation  brightness  tint
    Row { 2, plainBlur },
    Row { -2, { 20, 1, 1, { 1, 1, 1, 0.15 } } },
    Row { 2010, { 30, 1.8, 1, { 0.97, 0.97, 0.97, 0.45 } } },
    Row { 1001, { 20, 1.3, 0.8, { 0.11, 0.11, 0.12, 0.66 } } },
    Row { 2050, { 20, 1.8, 0.7, { 0.09, 0.09, 0.1, 0.38 } } },
    Row { 2060, { 10, 1.4, 1, { 0.5, 0.56, 0.64, 0.45 } } },
};

} // namespace

Material materialOfStyle(std::int64_t style)
{
    const auto row = std::ranges::find(rows, style, &Row::style);
    return row == rows.end() ? plainBlur : row->material;
}

} // namespace panotra::render
