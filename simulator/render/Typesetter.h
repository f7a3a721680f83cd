/// Text as labels show it: one line unless more are asked for, centred in its height, cut short with an ellipsis where
/// it is too long.
#pragma once

#include "simulator/render/Handles.h"
#include "simulator/render/Shapes.h"

#include <cstdint>
#include <optional>
#include <string>

namespace panotra::render {

enum class TextAlignment : std::uint8_t { Left, Center, Right };
enum class TextWeight : std::uint8_t { Light, Regular, Medium };

struct TextStyle {
    double size; ///< points
    TextWeight weight = TextWeight::Regular;
    TextAlignment alignment = TextAlignment::Left;
    std::uint8_t lines = 1; ///< at most; more words than they hold are cut short
    friend bool operator==(const TextStyle&, const TextStyle&) = default;
};

class Typesetter {
public:
    /// None if no font at all is installed, and nothing can be set.
    static std::optional<Typesetter> make();

    /// The family that text is set in: Inter, or what the system has instead.
    const std::string& family() const { return m_family; }
    bool usesFallback() const;

    /// Fills the text's outlines with the context's source, in a rectangle of `size` at its origin. Line height and
    /// baseline are the font's, so that texts of one size stand on one line.
    void draw(cairo_t* context, const std::string& text, const TextStyle& style, Size size) const;

private:
    Typesetter() = default;

    Handle<PangoContext> m_context;
    std::string m_family;
};

} // namespace panotra::render
