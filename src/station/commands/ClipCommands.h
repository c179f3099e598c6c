#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QString>

namespace vantrel {

class CardObject;
class Session;

/// @file Copying objects between pages, layouts and sessions, for a station with design tools. An
/// automatic number is copied with its current number and counts on by itself from there. None of
/// this fails.

/// The type of copied objects on a clipboard: JSON in UTF-8.
inline constexpr QLatin1StringView CopiedObjectsType{"application/x-vantrel-objects"};

/// Most objects that are pasted at once, and most characters of a pasted text.
inline constexpr int MostPasted = 1000;
inline constexpr int LongestPastedText = 65535;

/// The selected objects as bytes of that type; empty without a selection.
QByteArray CopySelected(Session& session);
/// As `CopySelected`, and deletes the objects.
QByteArray CutSelected(Session& session);
/// Adds copied objects to the page and selects them. They are put where the originals are, or
/// beside where one is already there. Does nothing without an open layout, and for other bytes.
void PasteObjects(Session& session, const QByteArray& copied);
/// Adds a static text, with the text's lines as they are, and selects it. Does nothing without an
/// open layout or for an empty text.
void PasteText(Session& session, const QString& text);
/// Pastes the selected objects without a clipboard.
void DuplicateSelected(Session& session);

/// An object as it is copied.
QJsonObject DescribeObject(const CardObject& object);
/// Adds a copied object on top of the open page, in its own place. @return null if the description
/// is that of no object
CardObject* AddDescribedObject(Session& session, const QJsonObject& described);

} // namespace vantrel
