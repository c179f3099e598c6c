#pragma once

#include <QVariant>

namespace vantrel {

/// The form a value has in the store: a whole number, a real, a text, or nothing. A column of texts
/// takes numbers as texts; an empty text stays a text, also where it is a null one.
QVariant StoredForm(const QVariant& value, bool isText);

/// Whether two values in stored form are the same. A real column holds 200 as 200.0.
bool SameStored(const QVariant& left, const QVariant& right);

} // namespace vantrel
