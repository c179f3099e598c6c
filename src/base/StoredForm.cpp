#include "base/StoredForm.h"
#include <QString>

namespace vantrel {

namespace {
bool IsNumber(const QVariant& value)
{
    return value.typeId() == QMetaType::LongLong || value.typeId() == QMetaType::Double;
}
} // namespace

QVariant StoredForm(const QVariant& value, bool isText)
{
    if (!value.isValid() || value.isNull())
        return {};
    if (isText || value.typeId() == QMetaType::QString) {
        const QString text = value.toString();
        return text.isNull() ? QVariant(QStringLiteral("")) : QVariant(text);
    }
    switch (value.typeId()) {
    case QMetaType::Double:
    case QMetaType::Float:
        return value.toDouble();
    default:
        return value.toLongLong();
    }
}

bool SameStored(const QVariant& left, const QVariant& right)
{
    if (IsNumber(left) && IsNumber(right) && left.typeId() != right.typeId())
        return left.toDouble() == right.toDouble();
    return left.typeId() == right.typeId() && left == right;
}

} // namespace vantrel
