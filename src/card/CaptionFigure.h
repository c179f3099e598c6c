#pragma once

#include "base/Font.h"
#include "drawing/FilledBox.h"
#include <QString>
#include <QStringList>
#include <vector>

namespace vantrel {

class CardObject;

/// One line of a notice, with the place of its upper left corner in twips.
struct NoticeLine
{
    QString Text;
    double X = 0;
    double Y = 0;
};

/// What a label shows in its box instead of its caption as text, all in its text colour and in
/// twips on the page: a bar code of the caption, a shape, or a frame with a notice why the caption
/// cannot be shown.
struct CaptionFigure
{
    std::vector<FilledBox> Boxes;
    Font NoticeFont;
    std::vector<NoticeLine> Notice;
    /// Side of a module of a bar code in twips; 0 if no code is shown.
    double Module = 0;
    /// Whether the code of the caption is too large for the box.
    bool NeedsLargerBox = false;
    /// Why the caption cannot be shown, such as "EAN-13: 12 or 13 digits are wanted"; empty if it
    /// is. Never holds any part of the caption.
    QString Trouble;
};

/// Whether a font shows figures instead of text: its name is "Barcode" or "Shape", a blank and the
/// name of a kind, exactly so.
bool IsFigureFont(const Font& font);
/// Whether it is the font of a shape, which does not show the caption at all.
bool IsShapeFont(const Font& font);

/// Whether a font shows bar codes.
bool IsCodeFont(const Font& font);

/// The names of all fonts that show figures, bar codes first.
QStringList FigureFontNames();

/// The figure of a label; empty where its font shows text. A bar code is as large as fits its box
/// with its quiet zone, in the middle of it; an empty caption draws nothing. A shape fills its box,
/// whatever the caption. Never fails.
/// @param dotsPerInch  of the printer, for modules of whole dots; 0 if it is not known, then those
/// of most card printers count
CaptionFigure FigureOf(const CardObject& label, int dotsPerInch);

} // namespace vantrel
