#include "shaping/Serializer.h"
#include "app/Session.h"
#include "layout/StoreStatements.h"
#include "platform/Recordset.h"
#include "platform/Skip.h"
#include "shaping/AutoNumber.h"
#include "shaping/SerializerElement.h"

namespace vantrel {

namespace {

void AppendPattern(Session& session, QString& text)
{
    Recordset rows(session.LayoutDb);
    rows.Open(StreamOfLayout(session.CurrentLayoutName));
    for (; !rows.IsEof(); rows.MoveNext()) {
        Skip("render element", [&] {
            text += RenderStreamElement(ReadStreamElement(rows), session.CurrentParams.Filter,
                                        session.FieldValues);
        });
    }
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
