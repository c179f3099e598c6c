#include "station/compose/TrackComposer.h"
#include "base/Failure.h"
#include "base/NumberFormat.h"
#include "station/compose/FieldDialogs.h"
#include "station/layout/LayoutParams.h"
#include "station/session/Operator.h"
#include "station/session/Session.h"
#include <QStringList>
#include <algorithm>
#include <iterator>

namespace vantrel {

namespace {

constexpr QString LayoutParamsRecord::*TrackTexts[TrackCount] = {
    &LayoutParamsRecord::Track1, &LayoutParamsRecord::Track2, &LayoutParamsRecord::Track3};

/// The token at which the evaluation of a formula fails, if it does.
std::optional<QString> UnreadableToken(const QString& formula, const FieldValues& values)
{
    qsizetype read = 0;
    try {
        EvaluateTrack(formula, values, MachineDecimalSeparator(),
                      [&](TokenKind, const QString&) { ++read; });
    } catch (const Failure&) {
        return formula.split(QLatin1Char('~')).value(read);
    }
    return std::nullopt;
}

} // namespace

std::size_t TrackComposer::IndexOf(int track)
{
    if (track < 1 || track > TrackCount)
        throw Failure(FailureNumber::SubscriptOutOfRange, QStringLiteral("Subscript out of range"));
    return static_cast<std::size_t>(track - 1);
}

TrackComposer::TrackComposer(Session& session) : m_session(session)
{
    std::transform(std::begin(TrackTexts), std::end(TrackTexts), m_rows.begin(),
                   [&](auto text) { return ReadTrackElements(session.CurrentParams.*text); });
}

bool TrackComposer::HasLayout() const
{
    return !m_session.CurrentLayoutName.isEmpty();
}

std::vector<ElementNode> TrackComposer::Nodes() const
{
    return TrackElementNodes(m_session.FieldValues.Count(),
                             m_session.Document.HighestIndex(Family::lbl_AUTO));
}

const TrackElements& TrackComposer::Row(int track) const
{
    return m_rows[IndexOf(track)];
}

TrackElement* TrackComposer::Find(int track, int index)
{
    TrackElements& row = m_rows[IndexOf(track)];
    if (index < 0 || static_cast<std::size_t>(index) >= row.size())
        return nullptr;
    return &row[static_cast<std::size_t>(index)];
}

void TrackComposer::Select(int track)
{
    IndexOf(track);
    m_selectedTrack = track;
}

void TrackComposer::AddTrackElement(int track, TokenKind kind, const QString& text)
{
    m_rows[IndexOf(track)].push_back(MakeTrackElement(kind, text));
}

void TrackComposer::Drop(int track, const QString& key)
{
    Select(track);
    if (const auto element = TrackElementOfKey(key))
        m_rows[IndexOf(track)].push_back(*element);
}

void TrackComposer::TakePad(int track, int index)
{
    if (TrackElement* const element = Find(track, index))
        element->LinkItem = PadText(m_session.Pad);
    BeginPad(m_session.Pad);
}

void TrackComposer::ClearTrack()
{
    if (m_selectedTrack == 0) {
        m_session.Operator.MessageBox(QStringLiteral("You must select a track to clear first! "),
                                      QStringLiteral("Select a Track"), BoxIcon::Information);
        return;
    }
    m_rows[IndexOf(m_selectedTrack)].clear();
}

QString TrackComposer::Ostrand_Encode(std::int16_t track)
{
    const std::size_t row = IndexOf(track);
    QString& stored = m_session.CurrentParams.*TrackTexts[row];
    stored = WriteTrackElements(m_rows[row]);
    return stored;
}

void TrackComposer::Save()
{
    for (std::int16_t track = 1; track <= TrackCount; ++track)
        Ostrand_Encode(track);
    SaveLayoutParams(m_session.LayoutDb, m_session.CurrentLayoutName, m_session.CurrentParams);
}

TrackPreview TrackComposer::Preview(int track) const
{
    const QString formula = WriteTrackElements(Row(track));
    if (formula.isEmpty())
        return {{}, QStringLiteral("Nothing goes onto this track")};
    if (const auto token = UnreadableToken(formula, m_session.FieldValues))
        return {{}, QStringLiteral("\"%1\" cannot be read with the last record").arg(*token)};
    return {StripeBody(m_session.CurrentParams.PrinterType, formula, m_session.FieldValues,
                       MachineDecimalSeparator(), track),
            {}};
}

QString AskStaticText(Operator& stationOperator, const QString& present)
{
    return stationOperator.InputBox(QStringLiteral("Please enter a value for the static text"),
                                    QStringLiteral("Static Text Contents"), present);
}

} // namespace vantrel
