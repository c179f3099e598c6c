#pragma once

#include <QString>
#include <QStringList>
#include <vector>

namespace vantrel {

class CardObject;

/// What an operator calls an object: its kind, and in parentheses what it shows, such as
/// "Static Text (Visitor)" or "Image (ada.png)". Of a long text the beginning.
QString SpokenName(const CardObject& object);

/// The names of objects, one below the other; of many objects the first, and how many more there
/// are.
QString SpokenNames(const std::vector<CardObject*>& objects);

} // namespace vantrel
