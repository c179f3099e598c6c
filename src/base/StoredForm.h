#pragma once

#include <QVariant>

namespace vantrel {

/// Converts a value to the type it has in the database: a whole number, a real, a text or null. A
/// text column stores numbers as text. An empty string is stored as an empty text and never as
/// null, even a null `QString`.
QVariant StoredForm(const QVariant& value, bool isText);

/// Whether two values in stored form are equal. 200 and 200.0 are, because a real column stores 200
/// as 200.0.
bool SameStored(const QVariant& left, const QVariant& right);

} // namespace vantrel
