#include "station/compose/DocumentGenerator.h"
#include "base/InputText.h"
#include "base/Skip.h"
#include "station/capture/Pipeline.h"
#include "station/layout/DesignSteps.h"
#include "station/layout/LoadLayout.h"
#include "station/layout/RecordPage.h"
#include "station/ledger/RecordRoad.h"
#include "station/session/MainRuntime.h"
#include "station/session/Operator.h"
#include "station/session/Session.h"
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

RecordOrigin OriginOf(const Session& session, const QString& rawData, const QString& layout)
{
    return {.Source = QStringLiteral("Document generator"),
            .Raw = BytesOfInput(rawData, session.Options.Encoding),
            .Layout = layout};
}

void PrintBehind(Session& session, const QString& rawData, const QString& layout)
{
    const RecordPage record(session, {layout, 1});
    session.Operator.LetEventsRun();
    {
        const RecordRoad road(session, OriginOf(session, rawData, layout));
        ProcessStream(session, rawData, record);
    }
    session.Operator.LetEventsRun();
}

void PrintOnLayout(Session& session, const QString& rawData, const QString& layout)
{
    if (PrintsBehindSurface(session)) {
        PrintBehind(session, rawData, layout);
        return;
    }
    Skip("load", [&] { LoadFirstPage(session, layout); });
    session.Document.Refresh();
    session.Operator.LetEventsRun();
    {
        const RecordRoad road(session, OriginOf(session, rawData, {}));
        ProcessStream(session, rawData);
    }
    session.Operator.LetEventsRun();
    CloseWithoutSaving(session);
    session.Operator.LetEventsRun();
}

} // namespace

RecordList::RecordList(VT5_BufferedRecordQue& queue) : m_queue(queue)
{
    Build();
}

void RecordList::Build()
{
    m_lines.clear();
    m_recordCount = m_queue.RecordCount;
    for (const auto& record : m_queue.BufferedRecords) {
        const int count = record->DataFields.Count();
        if (m_viewedField > count)
            m_viewedField = std::max(FirstField, static_cast<std::int16_t>(count));
        if (!record->Valid)
            continue;
        // A record without values gets no line.
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
    for (const auto& record : m_queue.BufferedRecords)
        record->Valid = false;
    Build();
}

bool RecordList::LookForRecords()
{
    if (m_queue.RecordCount == m_recordCount)
        return false;
    Build();
    return true;
}

void PrintOnLayouts(Session& session, const QString& rawData, const QStringList& layouts)
{
    if (layouts.contains(session.CurrentLayoutName) && !MayPrintStored(session))
        return;
    const RoadHold hold(session.Road);
    for (const QString& layout : layouts)
        PrintOnLayout(session, rawData, layout);
}

} // namespace vantrel
