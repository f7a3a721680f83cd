/// Setting text with pango, without hinting: outlines are the same at every size, turn and place.
#include "simulator/render/Typesetter.h"

#include <fontconfig/fontconfig.h>

#include <array>
#include <cmath>

namespace panotra::render {
namespace {

constexpr const char* preferredFamily = "Inter";
/// What fontconfig is asked for where the preferred family is not installed.
constexpr const char* fallbackFamily = "sans-serif";

/// Inter runs a little wider than the platform's own font. Letters stand closer by this part of the size, so that a
/// title that fits on a phone fits here.
constexpr double letterSpacing = -0.011;

PangoWeight pangoWeight(TextWeight weight)
{
    constexpr std::array weights { PANGO_WEIGHT_LIGHT, PANGO_WEIGHT_NORMAL, PANGO_WEIGHT_MEDIUM };
    return weights[static_cast<std::size_t>(weight)];
}

PangoAlignment pangoAlignment(TextAlignment alignment)
{
    constexpr std::array alignments { PANGO_ALIGN_LEFT, PANGO_ALIGN_CENTER, PANGO_ALIGN_RIGHT };
    return alignments[static_cast<std::size_t>(alignment)];
}

int pangoUnits(double points)
{
    return static_cast<int>(std::lround(points * PANGO_SCALE));
}

/// Pango lists the generic families even where there is nothing behind them.
bool isAnyFontInstalled()
{
    const FcFontSet* const fonts = FcConfigGetFonts(nullptr, FcSetSystem);
    return fonts != nullptr && fonts->nfont > 0;
}

/// The family that fontconfig really gives for a name.
std::string resolvedFamily(PangoContext* context, const char* name)
{
    const Handle<PangoFontDescription> asked(pango_font_description_new());
    pango_font_description_set_family(asked.get(), name);
    const Handle<PangoFont> font(pango_context_load_font(context, asked.get()));
    if (font == nullptr)
        return name;
    const Handle<PangoFontDescription> found(pango_font_describe(font.get()));
    return pango_font_description_get_family(found.get());
}

} // namespace

std::optional<Typesetter> Typesetter::make()
{
    if (!FcInit() || !isAnyFontInstalled())
        return std::nullopt;
    Typesetter typesetter;
    typesetter.m_context.reset(pango_font_map_create_context(pango_cairo_font_map_get_default()));
    PangoContext* const context = typesetter.m_context.get();
    const Handle<cairo_font_options_t> options(cairo_font_options_create());
    cairo_font_options_set_hint_style(options.get(), CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options.get(), CAIRO_HINT_METRICS_OFF);
    pango_cairo_context_set_font_options(context, options.get());
    pango_context_set_round_glyph_positions(context, FALSE);

    typesetter.m_family = resolvedFamily(context, preferredFamily);
    if (typesetter.usesFallback())
        typesetter.m_family = resolvedFamily(context, fallbackFamily);
    return typesetter;
}

bool Typesetter::usesFallback() const
{
    return m_family != preferredFamily;
}

void Typesetter::draw(cairo_t* context, const std::string& text, const TextStyle& style, Size size) const
{
    const Handle<PangoFontDescription> font(pango_font_description_new());
    pango_font_description_set_family(font.get(), m_family.c_str());
    pango_font_description_set_weight(font.get(), pangoWeight(style.weight));
    pango_font_description_set_absolute_size(font.get(), style.size * PANGO_SCALE);

    const Handle<PangoAttrList> attributes(pango_attr_list_new());
    pango_attr_list_insert(attributes.get(), pango_attr_letter_spacing_new(pangoUnits(style.size * letterSpacing)));

    const Handle<PangoLayout> layout(pango_layout_new(m_context.get()));
    pango_layout_set_single_paragraph_mode(layout.get(), TRUE);
    pango_layout_set_font_description(layout.get(), font.get());
    pango_layout_set_alignment(layout.get(), pangoAlignment(style.alignment));
    pango_layout_set_ellipsize(layout.get(), PANGO_ELLIPSIZE_END);
    pango_layout_set_attributes(layout.get(), attributes.get());
    pango_layout_set_width(layout.get(), pangoUnits(size.width));
    pango_layout_set_height(layout.get(), -style.lines); // below zero: lines
    pango_layout_set_text(layout.get(), text.data(), static_cast<int>(text.size()));
    int height = 0;
    pango_layout_get_size(layout.get(), nullptr, &height);

    cairo_move_to(context, 0, (size.height - static_cast<double>(height) / PANGO_SCALE) / 2);
    pango_cairo_layout_path(context, layout.get());
    cairo_fill(context);
}

} // namespace panotra::render
