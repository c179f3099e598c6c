#pragma once

#include "card/CardObject.h"
#include <QString>
#include <vector>

namespace vantrel {

/// @file What operators call the objects of a card. Nothing here fails.

/// The kind of all objects of a family, such as "Data Field"; empty for grips.
QString FamilyKind(Family family);
/// The kind of an object with the number of its field, such as "Data Field 1" or "Static Text".
QString NumberedKind(const CardObject& object);
/// The kind of an object with what it is drawn as, such as "Data Field", "Data Field as QR Code" or
/// "Ellipse".
QString ObjectKind(const CardObject& object);
/// What tells an object from others of its kind: the caption of a text, the file name of a picture;
/// empty where there is none.
QString ObjectText(const CardObject& object);

/// An object in one line: its kind, and in parentheses what it shows, such as "Static Text
/// (Visitor)" or "Image (ada.png)". Of a long text the beginning.
QString SpokenName(const CardObject& object);
/// The names of objects, one below the other; of many objects the first, and how many more there
/// are.
QString SpokenNames(const std::vector<CardObject*>& objects);

} // namespace vantrel
