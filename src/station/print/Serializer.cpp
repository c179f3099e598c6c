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

void AppendElement(QString& text, const ColumnReader& row, const QString& filter,
                   const FieldValues& values)
{
    const QString rendered = RenderStreamElement(ReadStreamElement(row), filter, values);
    if (rendered.size() > LongestOutput - text.size())
        throw Failure(FailureNumber::Overflow, QStringLiteral("Overflow"));
    text += rendered;
}

void AppendPattern(Session& session, const LayoutPage& page, QString& text)
{
    Recordset rows(session.LayoutDb);
    rows.Open(StreamOfLayout(page.LayoutName));
    for (; !rows.IsEof(); rows.MoveNext()) {
        Skip("render element",
             [&] { AppendElement(text, ReaderOf(rows), page.Params.Filter, session.FieldValues); });
    }
}

} // namespace

QString BuildSerializerPattern(Session& session, const LayoutPage& page)
{
    for (const auto& object : page.Document.Objects()) {
        if (object->Family() == Family::lbl_AUTO)
            Skip("raise number", [&] { Increment_If_AutoNumber(*object); });
    }
    QString text;
    Skip("render pattern", [&] { AppendPattern(session, page, text); });
    return QLatin1Char(' ') + text;
}

QString BuildSerializerPattern(Session& session)
{
    return BuildSerializerPattern(session, session.Surface);
}

QString RenderStream(const std::vector<ColumnReader>& rows, const QString& filter,
                     const FieldValues& values)
{
    QString text;
    for (const ColumnReader& row : rows)
        Skip("render element", [&] { AppendElement(text, row, filter, values); });
    return QLatin1Char(' ') + text;
}

} // namespace vantrel
