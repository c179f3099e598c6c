#pragma once

#include "base/Font.h"
#include "drawing/GlyphLine.h"
#include <QString>
#include <functional>
#include <memory>
#include <pango/pangocairo.h>

namespace vantrel {

class PairWidths;

struct PangoLayoutDeleter
{
    void operator()(PangoLayout* layout) const { g_object_unref(layout); }
};

/// One line of text in one font, shaped once: what is measured is what is drawn. Lengths in points.
struct ShapedLine
{
    std::unique_ptr<PangoLayout, PangoLayoutDeleter> Layout;
    GlyphLine Glyphs;
    double Width = 0;
};

/// Heights of a font in points. A line is `Ascent` plus `Descent` high.
struct FontHeights
{
    double Ascent = 0;
    double Descent = 0;

    double Line() const { return Ascent + Descent; }
};

/// Turns texts into lines of glyphs, unhinted and without rounding, at one point to the unit. Fonts
/// are resolved once and lines that came lately are kept, since a card shows the same labels as the
/// one before. A cache of what is installed, not a state.
class TextShaper
{
public:
    /// The one of the process, for the interface thread.
    static TextShaper& Get();

    TextShaper();
    TextShaper(const TextShaper&) = delete;
    TextShaper& operator=(const TextShaper&) = delete;
    ~TextShaper();

    FontHeights Heights(const Font& font);
    /// @param text  without control characters. The line is valid as long as it is held.
    std::shared_ptr<const ShapedLine> Line(const QString& text, const Font& font);
    /// A stretch of a line in one direction, shaped by itself and not kept.
    std::shared_ptr<const ShapedLine> Stretch(QStringView text, const Font& font,
                                              bool isRightToLeft);
    /// The widths in points by which characters of this font follow each other, as far as they were
    /// asked for. Valid until another font is asked for.
    PairWidths& Pairs(const Font& font);
    /// Installed families, in the order of the font system.
    const QStringList& Families();

private:
    struct Caches;
    std::unique_ptr<Caches> m_caches;
};

/// Cuts a text where a carriage return, a line feed or both together stand and takes out all other
/// control characters and codes that are none. There is always a first line.
/// @param take  is given each line in its turn; returns false where it wants no more
void TakeLinesOfText(const QString& text, const std::function<bool(const QString& line)>& take);

} // namespace vantrel
