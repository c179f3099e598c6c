#pragma once

#include "base/Font.h"
#include "drawing/GlyphLine.h"
#include <QString>
#include <functional>
#include <memory>
#include <pango/pangocairo.h>

namespace vantrel {

class PairWidths;

/// Frees a Pango layout.
struct PangoLayoutDeleter
{
    void operator()(PangoLayout* layout) const { g_object_unref(layout); }
};

/// One line of text in one font, shaped once for measuring and drawing. Lengths are points.
struct ShapedLine
{
    std::unique_ptr<PangoLayout, PangoLayoutDeleter> Layout;
    GlyphLine Glyphs;
    double Width = 0;
};

/// Heights of a font in points. A line's height is `Ascent` plus `Descent`.
struct FontHeights
{
    double Ascent = 0;
    double Descent = 0;

    /// Height of a line in points.
    double Line() const { return Ascent + Descent; }
};

/// Shapes lines of text, unhinted and unrounded, in points. Resolved fonts and recent lines are
/// cached, because successive cards show the same labels.
class TextShaper
{
public:
    /// The only instance; for the main thread.
    static TextShaper& Get();

    TextShaper();
    TextShaper(const TextShaper&) = delete;
    TextShaper& operator=(const TextShaper&) = delete;
    ~TextShaper();

    /// Heights of the font, resolved once and cached.
    FontHeights Heights(const Font& font);
    /// @param text  without control characters
    std::shared_ptr<const ShapedLine> Line(const QString& text, const Font& font);
    /// Shapes a part of a line that has one direction. The result is not cached.
    std::shared_ptr<const ShapedLine> Stretch(QStringView text, const Font& font,
                                              bool isRightToLeft);
    /// The pair widths of a font, in points. The reference is valid until the next call.
    PairWidths& Pairs(const Font& font);
    /// Names of the installed families, in the order of the font system.
    const QStringList& Families();

private:
    struct Caches;
    std::unique_ptr<Caches> m_caches;
};

/// Splits a text at each carriage return, line feed or pair of both, and removes all other control
/// characters and noncharacters. There is always at least one line.
/// @param take  receives the lines in order and returns false to stop
void TakeLinesOfText(const QString& text, const std::function<bool(const QString& line)>& take);

} // namespace vantrel
