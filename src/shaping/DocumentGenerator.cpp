#include "shaping/DocumentGenerator.h"
#include "app/MainRuntime.h"
#include "app/Operator.h"
#include "app/Session.h"
#include "capture/Pipeline.h"
#include "layout/LoadLayout.h"
#include "platform/Skip.h"
#include <algorithm>
#include <limits>

namespace vantrel {

namespace {

constexpr std::int16_t FirstField = 1;

void CloseWithoutSaving(Session& session)
{
    LayoutParamsRecord& params = session.CurrentParams;
    session.Face.SetCaption(PlainCaption());
    session.Document.Unload();
    params.LayoutOpen = false;
    params.Encode = false;
    params.Track1.clear();
    params.Track2.clear();
    params.Track3.clear();
    session.CurrentLayoutName.clear();
}

void PrintOnLayout(Session& session, const QString& rawData, const QString& layout)
{
    Skip("load", [&] { LoadFirstPage(session, layout); });
    session.Document.Refresh();
    session.Operator.LetEventsRun();
    ProcessStream(session, rawData);
    session.Operator.LetEventsRun();
    CloseWithoutSaving(session);
    session.Operator.LetEventsRun();
}

} // namespace

RecordList::RecordList(Session& session) : m_session(session)
{
    Build();
}

void RecordList::Build()
{
    m_lines.clear();
    m_recordCount = m_session.RecordQueue.RecordCount;
    for (const auto& record : m_session.RecordQueue.BufferedRecords) {
        const int count = record->DataFields.Count();
        if (m_viewedField > count)
            m_viewedField = std::max(FirstField, static_cast<std::int16_t>(count));
        if (!record->Valid)
            continue;
        // A record without values has nothing to show, and no line.
        Skip("line of a record", [&] {
            m_lines.push_back({record->DataFields.Item(m_viewedField), record->RawData});
        });
    }
}

void RecordList::ViewNextField()
{
    if (m_viewedField < std::numeric_limits<std::int16_t>::max())
        ++m_viewedField;
    Build();
}

void RecordList::ViewFieldBefore()
{
    if (m_viewedField > FirstField)
        --m_viewedField;
    Build();
}

void RecordList::Clear()
{
    for (const auto& record : m_session.RecordQueue.BufferedRecords)
        record->Valid = false;
    Build();
}

bool RecordList::LookForRecords()
{
    if (m_session.RecordQueue.RecordCount == m_recordCount)
        return false;
    Build();
    return true;
}

void PrintOnLayouts(Session& session, const QString& rawData, const QStringList& layouts)
{
    for (const QString& layout : layouts)
        PrintOnLayout(session, rawData, layout);
}

} // namespace vantrel
