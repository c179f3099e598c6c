#include "station/print/SerializerElement.h"
#include "base/Convert.h"
#include "card/FieldValues.h"
#include "card/StripChars.h"

namespace vantrel {

StoredStreamElement ReadStreamElement(const ColumnReader& row)
{
    return {row(QStringLiteral("ElementType")), row(QStringLiteral("ElementData"))};
}

QString RenderStreamElement(const StoredStreamElement& element, const QString& filter,
                            const FieldValues& values)
{
    if (element.ElementType.isNull())
        return {};
    switch (ToLong(element.ElementType)) {
    case StreamKind::Start:
        return QStringLiteral("<");
    case StreamKind::CarriageReturn:
        return QStringLiteral("\r");
    case StreamKind::Stop:
        return QStringLiteral(">");
    case StreamKind::DataField:
        return StripChars(filter, values.Item(ToInteger(element.ElementData)));
    case StreamKind::Text:
        return JoinedText(element.ElementData);
    default:
        return {};
    }
}

} // namespace vantrel
