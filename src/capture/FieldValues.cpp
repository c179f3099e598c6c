#include "capture/FieldValues.h"
#include "platform/Failure.h"

namespace vantrel {

const QString& FieldValues::Item(int position) const
{
    if (position < 1 || position > Count())
        throw Failure(FailureNumber::SubscriptOutOfRange, QStringLiteral("Subscript out of range"));
    return m_values[position - 1];
}

} // namespace vantrel
