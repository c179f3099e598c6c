#include "station/compose/SerializerComposer.h"
#include "base/Convert.h"
#include "base/HexCodes.h"
#include "base/Skip.h"
#include "station/layout/StoreStatements.h"
#include "station/session/Operator.h"
#include "station/session/Session.h"
#include "store/Recordset.h"

namespace vantrel {

namespace {

/// In characters: more than the line of a preview keeps. Each key pressed in the filter asks for
/// one, and each element may name a value of megabytes.
constexpr qsizetype LongestPreview = qsizetype{1} << 16;

} // namespace

SerializerComposer::SerializerComposer(Session& session) : m_session(session)
{
    Skip("read stream", [&] { ReadRow(); });
    Skip("read filter", [&] { ReadFilter(); });
}

void SerializerComposer::ReadRow()
{
    Recordset rows(m_session.LayoutDb);
    rows.Open(StreamOfLayout(m_session.CurrentLayoutName));
    for (; !rows.IsEof(); rows.MoveNext()) {
        Skip("read element", [&] {
            if (const auto element = StreamElementOf(ReadStreamElement(ReaderOf(rows))))
                m_row.push_back(*element);
        });
    }
}

void SerializerComposer::ReadFilter()
{
    Recordset rows(m_session.LayoutDb);
    rows.Open(FilterOfLayout(m_session.CurrentLayoutName));
    m_filter = JoinedText(rows.Value(QStringLiteral("Filter")));
}

std::vector<ElementNode> SerializerComposer::Nodes() const
{
    return StreamElementNodes(m_session.FieldValues);
}

StreamElement* SerializerComposer::Find(int index)
{
    if (index < 0 || static_cast<std::size_t>(index) >= m_row.size())
        return nullptr;
    return &m_row[static_cast<std::size_t>(index)];
}

void SerializerComposer::Drop(const QString& key)
{
    if (const auto element = StreamElementOfKey(key))
        m_row.push_back(*element);
}

void SerializerComposer::Clear()
{
    m_row.clear();
    m_remembered = None;
}

void SerializerComposer::RemoveRemembered()
{
    if (Find(m_remembered) != nullptr)
        m_row.erase(m_row.begin() + m_remembered);
    m_remembered = None;
}

void SerializerComposer::SaveStreamElements(const QString& filterText)
{
    // A macro may have closed the layout since the row was read.
    if (m_session.CurrentLayoutName.isEmpty())
        return;
    const QString filter = DecodeHexCodes(filterText);
    Skip("write stream", [&] { WriteRow(); });
    Skip("write filter", [&] { WriteFilter(filter); });
    m_session.CurrentParams.Filter = filter;
}

void SerializerComposer::WriteRow() const
{
    Recordset rows(m_session.LayoutDb);
    rows.Open(StreamOfLayout(m_session.CurrentLayoutName), CursorLock::Optimistic);
    for (; !rows.IsEof(); rows.MoveNext())
        Skip("delete element", [&] { rows.Delete(); });
    for (const StreamElement& element : m_row) {
        Skip("write element", [&] {
            const StoredStreamElement stored = StoredFormOf(element);
            rows.AddNew();
            rows.SetValue(QStringLiteral("LayoutName"), m_session.CurrentLayoutName);
            rows.SetValue(QStringLiteral("ElementType"), stored.ElementType);
            rows.SetValue(QStringLiteral("ElementData"), stored.ElementData);
            rows.Update();
        });
    }
}

void SerializerComposer::WriteFilter(const QString& filter) const
{
    Recordset rows(m_session.LayoutDb);
    rows.Open(FilterOfLayout(m_session.CurrentLayoutName), CursorLock::Optimistic);
    rows.SetValue(QStringLiteral("Filter"), filter);
    rows.Update();
}

QString SerializerComposer::Preview(const QString& filterText) const
{
    const QString filter = DecodeHexCodes(filterText);
    QString text(QLatin1Char(' '));
    for (const StreamElement& element : m_row) {
        if (text.size() >= LongestPreview)
            break;
        Skip("render element", [&] {
            text += RenderStreamElement(StoredFormOf(element), filter, m_session.FieldValues)
                        .left(LongestPreview - text.size());
        });
    }
    return text;
}

QString AskStreamText(Operator& stationOperator)
{
    const QString words = QStringLiteral("Enter a new value");
    return stationOperator.InputBox(words, words, {});
}

} // namespace vantrel
