#pragma once

#include <QImage>
#include <QString>
#include <QStringList>
#include <optional>

namespace vantrel {

class CardDocument;
class CardObject;
class Session;

/// @file The choice of a bar code or shape for the selected text.

/// @return the selected object if it is a text, a field or a number, else null
const CardObject* SelectedLabel(const CardDocument& document);
/// What a label shows: "Text", or the name of its bar code or shape as a font.
QString FigureChoiceOf(const CardObject& label);
/// All choices: "Text" first, then the fonts of bar codes and shapes.
QStringList FigureChoices();

/// Makes the selected object show a choice and the card be drawn anew. A text that was a figure
/// gets the page's font for new texts again; the size and style of the font stay. Does nothing if
/// another object is selected meanwhile.
/// @param label  the object that was asked for; not looked into
void ChooseFigure(Session& session, const CardObject* label, const QString& choice);

/// Draws a label as it would be with a choice, its box as large as fits.
/// @param room  what the picture has to fit into, in pixels; at least one in each direction
QImage FigurePreview(const CardObject& label, const QString& choice, QSize room);

} // namespace vantrel
