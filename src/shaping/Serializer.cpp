#include "shaping/Serializer.h"
#include "app/Session.h"
#include "platform/Convert.h"
#include "platform/Recordset.h"
#include "platform/Skip.h"
#include "shaping/AutoNumber.h"
#include "shaping/StripChars.h"

namespace vantrel {

namespace {

/// Kinds of elements as the store numbers them.
namespace Element {
constexpr std::int32_t DataField = 0;
constexpr std::int32_t Text = 1;
constexpr std::int32_t Start = 3;
constexpr std::int32_t Stop = 4;
constexpr std::int32_t CarriageReturn = 5;
} // namespace Element

/// What one element adds to the output; kinds that render nothing add nothing, hex codes among
/// them.
QString RenderElement(const Session& session, const Recordset& row)
{
    const QVariant type = row.Value(QStringLiteral("ElementType"));
    if (type.isNull())
        return {};
    const auto data = [&] { return row.Value(QStringLiteral("ElementData")); };
    switch (ToLong(type)) {
    case Element::Start:
        return QStringLiteral("<");
    case Element::CarriageReturn:
        return QStringLiteral("\r");
    case Element::Stop:
        return QStringLiteral(">");
    case Element::DataField:
        return StripChars(session.CurrentParams.Filter,
                          session.FieldValues.Item(ToInteger(data())));
    case Element::Text:
        return JoinedText(data());
    default:
        return {};
    }
}

void AppendPattern(Session& session, QString& text)
{
    Recordset rows(session.LayoutDb);
    rows.Open(QStringLiteral("SELECT * FROM [Serializer] WHERE [LayoutName] = '") +
              session.CurrentLayoutName + QLatin1Char('\''));
    for (; !rows.IsEof(); rows.MoveNext())
        Skip("render element", [&] { text += RenderElement(session, rows); });
}

} // namespace

QString BuildSerializerPattern(Session& session)
{
    for (const auto& object : session.Document.Objects()) {
        if (object->Family() == Family::lbl_AUTO)
            Skip("raise number", [&] { Increment_If_AutoNumber(*object); });
    }
    QString text;
    Skip("render pattern", [&] { AppendPattern(session, text); });
    return QLatin1Char(' ') + text;
}

} // namespace vantrel
