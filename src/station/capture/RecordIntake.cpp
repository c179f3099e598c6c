#include "station/capture/RecordIntake.h"
#include "base/Skip.h"
#include "ports/AnswerLine.h"
#include "station/capture/Sources.h"
#include "station/ledger/StationLedger.h"
#include "station/session/Session.h"
#include <QLoggingCategory>

namespace vantrel {

namespace {

Q_LOGGING_CATEGORY(stationLog, "vantrel.station")

/// Bytes that a socket or serial port reads ahead. As much again can be in the input when its first
/// record is complete.
constexpr qint64 ReadAheadBytes = qint64{32} << 10;

/// Milliseconds until a record is offered again that was refused.
constexpr int OfferAgainInterval = 1000;

} // namespace

RecordIntake::RecordIntake(Session& session)
    : m_session(session), m_dataStart(session.Settings.Framing.DataStart),
      m_dataEnd(session.Settings.Framing.DataEnd)
{
    // A timer lets sockets and windows have their turn between two records.
    m_next.setSingleShot(true);
    connect(&m_next, &QTimer::timeout, this, &RecordIntake::TakeNext);
    m_session.Road.WhenFree = [this] { Schedule(); };
}

RecordIntake::~RecordIntake()
{
    m_session.Road.WhenFree = {};
}

RecordIntake& RecordIntake::Of(Session& session)
{
    if (!session.Inputs)
        session.Inputs = std::make_unique<RecordIntake>(session);
    return static_cast<RecordIntake&>(*session.Inputs);
}

void RecordIntake::ConnectSockets()
{
    SockArray& sock = m_session.Sock;
    sock.SetReadAhead(ReadAheadBytes);
    connect(&sock, &SockArray::DataArrival, this, &RecordIntake::OnHostData);
    connect(&sock, &SockArray::ConnectionClosed, this, &RecordIntake::OnHostClosed);
    connect(&sock, &SockArray::Closing, this, &RecordIntake::OnHostClosing);
}

void RecordIntake::ConnectComm()
{
    Comm& comm = m_session.Comm;
    comm.SetReadAhead(ReadAheadBytes);
    connect(&comm, &Comm::OnComm, this, &RecordIntake::OnSerialData);
    connect(&comm, &Comm::OutputSent, &comm, &Comm::Resume);
    connect(&comm, &Comm::Closing, this, &RecordIntake::OnSerialClosing);
}

RecordIntake::InputPointer RecordIntake::NewInput(ArrivalSource source, int element) const
{
    auto input = std::make_shared<Input>();
    input->Cutter.SetDelimiters(m_dataStart, m_dataEnd);
    input->Source = std::move(source);
    input->Element = element;
    return input;
}

RecordIntake::InputPointer RecordIntake::InputOfHost(int element)
{
    InputPointer& input = m_hosts[element];
    if (input)
        return input;
    input = NewInput(SourceOfHost(m_session, element), element);
    // A host that reads its answers again may send again.
    if (const auto answers = m_session.Sock.Answers(element)) {
        connect(answers.get(), &AnswerLine::Drained, this, [this, waiting = std::weak_ptr(input)] {
            if (const InputPointer host = waiting.lock())
                ReadOn(*host);
        });
    }
    return input;
}

bool RecordIntake::HasRecord(Input& input)
{
    return input.Refused || input.Cutter.HasRecord();
}

void RecordIntake::Append(const InputPointer& input, const QString& characters)
{
    const bool free = !m_session.Road.IsBusy();
    // The raw view shows what came last. If it still shared this input's text, appending would copy
    // the whole text.
    if (free)
        m_session.LastRawData.clear();
    input->Cutter.Append(characters);
    if (input->Cutter.HasRecord()) {
        MakeReady(input);
    } else if (free) {
        const QString& text = input->Cutter.Text();
        m_session.LastRawData = text.isEmpty() ? characters : text;
    }
}

void RecordIntake::OnHostData(int element)
{
    FollowDelimiters();
    const InputPointer input = InputOfHost(element);
    const auto answers = m_session.Sock.Answers(element);
    if (HasRecord(*input) || (answers && answers->IsFull()))
        return;
    Append(input, TakeCharacters(m_session, element, input->Source.Peer));
}

void RecordIntake::OnHostClosed(int element)
{
    Skip("close", [&] { m_session.Sock.Close(element); });
}

// Also when the station closes the connection itself.
void RecordIntake::OnHostClosing(int element)
{
    const auto found = m_hosts.find(element);
    if (found == m_hosts.end())
        return;
    const InputPointer input = found->second;
    m_hosts.erase(found);
    Append(input, TakeCharacters(m_session, element, input->Source.Peer));
    End(input);
}

void RecordIntake::OnSerialData()
{
    FollowDelimiters();
    Comm& comm = m_session.Comm;
    if (!m_serial)
        m_serial = NewInput(SourceOfSerial(m_session), 0);
    // Without flow control what is not read is lost.
    if (comm.PortOpen() && comm.HasFlowControl() && (HasRecord(*m_serial) || comm.IsOutputFull()))
        return;
    Append(m_serial, TakeSerialCharacters(m_session));
}

void RecordIntake::OnSerialClosing()
{
    const InputPointer input = std::exchange(m_serial, nullptr);
    if (!input)
        return;
    Append(input, TakeSerialCharacters(m_session));
    End(input);
}

void RecordIntake::End(const InputPointer& input)
{
    input->HasEnded = true;
    if (!input->IsReady)
        LogRest(*input);
}

void RecordIntake::LogRest(Input& input) const
{
    const qsizetype rest = input.Cutter.Text().trimmed().size();
    if (rest > 0)
        qCWarning(stationLog).noquote()
            << input.Source.Peer << "ended within a record;" << rest << "characters are dropped";
}

void RecordIntake::FollowDelimiters()
{
    const Delimiters& framing = m_session.Settings.Framing;
    if (m_session.Road.IsBusy() ||
        (framing.DataStart == m_dataStart && framing.DataEnd == m_dataEnd))
        return;
    m_dataStart = framing.DataStart;
    m_dataEnd = framing.DataEnd;
    const auto follow = [&](const InputPointer& input) {
        input->Cutter.SetDelimiters(m_dataStart, m_dataEnd);
        if (input->Cutter.HasRecord())
            MakeReady(input);
    };
    for (const InputPointer& input : m_ready)
        input->Cutter.SetDelimiters(m_dataStart, m_dataEnd);
    for (const auto& [element, input] : m_hosts)
        follow(input);
    if (m_serial)
        follow(m_serial);
}

void RecordIntake::MakeReady(const InputPointer& input)
{
    if (!input->IsReady) {
        input->IsReady = true;
        m_ready.push_back(input);
    }
    m_session.RecordWaits = true;
    Schedule();
}

void RecordIntake::Schedule()
{
    if (!m_ready.empty() && !m_stopped && !m_session.Road.IsBusy())
        m_next.start(m_isRefused ? OfferAgainInterval : 0);
}

void RecordIntake::ReadOn(const Input& input)
{
    if (input.HasEnded)
        return;
    if (input.Element == 0)
        m_session.Comm.Resume();
    else
        Skip("received data", [&] { m_session.Sock.Resume(input.Element); });
}

void RecordIntake::TakeNext()
{
    if (m_stopped || m_session.Road.IsBusy() || m_ready.empty())
        return;
    FollowDelimiters();
    const InputPointer input = m_ready.front();
    m_ready.pop_front();
    input->IsReady = false;
    m_session.RecordWaits = !m_ready.empty();

    QString record;
    if (input->Refused)
        record = *std::exchange(input->Refused, std::nullopt);
    else if (input->Cutter.HasRecord())
        record = input->Cutter.TakeRecord();
    if (input->Cutter.HasRecord())
        MakeReady(input);
    else if (input->HasEnded)
        LogRest(*input);
    else
        ReadOn(*input);

    // With other delimiters than when it came, what waited may be no record any more.
    if (record.isEmpty())
        WriteLedgerSoon(m_session);
    else
        m_isRefused = !Take(input, std::move(record));
    Schedule();
}

bool RecordIntake::Take(const InputPointer& input, QString record)
{
    const ArrivalSource source = input->Source;
    if (!m_session.Options.NeedsLedger())
        return TakeRecord(m_session, std::move(record), source);
    if (TakeRecord(m_session, record, source))
        return true;
    input->Refused = std::move(record);
    if (!std::exchange(input->IsReady, true))
        m_ready.push_front(input);
    return false;
}

void RecordIntake::DropIncomplete()
{
    for (const auto& [element, input] : m_hosts)
        input->Cutter.DropIncomplete();
    if (m_serial)
        m_serial->Cutter.DropIncomplete();
}

void RecordIntake::Stop()
{
    m_stopped = true;
    m_next.stop();
    m_session.RecordWaits = false;
    if (!m_ready.empty())
        qCWarning(stationLog) << "The station ends while complete records wait in" << m_ready.size()
                              << "inputs; they are not taken";
}

} // namespace vantrel
