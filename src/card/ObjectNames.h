#pragma once

#include <QString>

namespace vantrel {

class CardObject;

/// @file What operators call the objects of a card. Nothing here fails.

/// The kind of an object, such as "Data Field", "Data Field as QR Code" or "Ellipse".
QString ObjectKind(const CardObject& object);
/// What tells an object from others of its kind: the caption of a text, the file name of a picture;
/// empty where there is none.
QString ObjectText(const CardObject& object);

} // namespace vantrel
