#include "station/print/Serializer.h"
#include "base/Failure.h"
#include "base/Skip.h"
#include "card/AutoNumber.h"
#include "station/layout/StoreStatements.h"
#include "station/print/SerializerElement.h"
#include "station/session/Session.h"
#include "store/Recordset.h"

namespace vantrel {

namespace {

/// The most characters of an output: enough for any single value, but a pattern may not repeat a
/// long value without limit.
constexpr qsizetype LongestOutput = qsizetype{1} << 28;

void AppendPattern(Session& session, QString& text)
{
    Recordset rows(session.LayoutDb);
    rows.Open(StreamOfLayout(session.CurrentLayoutName));
    for (; !rows.IsEof(); rows.MoveNext()) {
        Skip("render element", [&] {
            const QString rendered = RenderStreamElement(
                ReadStreamElement(rows), session.CurrentParams.Filter, session.FieldValues);
            if (rendered.size() > LongestOutput - text.size())
                throw Failure(FailureNumber::Overflow, QStringLiteral("Overflow"));
            text += rendered;
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
