#include "ports/Comm.h"
#include "base/Failure.h"
#include "base/Profile.h"
#include <utility>

namespace vantrel {

namespace {

constexpr QLatin1StringView MappingSection("Serial Ports");

/// Applies new values to the device. @return false if the device refuses them; the values it
/// accepted last are then restored
template <typename Values>
bool Give(SerialLine& line, const Values& wanted, Values& taken)
{
    if (line.Apply(wanted)) {
        taken = wanted;
        return true;
    }
    line.Apply(taken);
    return false;
}

template <typename Values>
void Set(SerialLine* line, const Values& wanted, Values& inForce, Values& taken)
{
    if (line != nullptr && !Give(*line, wanted, taken))
        throw Failure(FailureNumber::InvalidCall, QStringLiteral("The port refuses the settings"));
    inForce = wanted;
}

} // namespace

Comm::Comm(QString mappingFile) : m_mappingFile(std::move(mappingFile)) {}

Comm::~Comm()
{
    Close();
}

QString Comm::DevicePath() const
{
    return ReadProfileValue(m_mappingFile, MappingSection, QStringLiteral("COM%1").arg(m_commPort),
                            QStringLiteral("/dev/ttyS%1").arg(m_commPort - 1));
}

void Comm::SetPortOpen(bool open)
{
    if (!open) {
        Close();
        return;
    }
    if (m_line != nullptr)
        throw Failure(FailureNumber::InvalidCall, QStringLiteral("The port is already open"));
    m_line = m_maker(DevicePath(), m_use).release();
    ++m_opening;
    m_hasRefused = false;
    m_refusalTold = false;
    m_line->setParent(this);
    m_decoder = InputDecoder(m_encoding);
    Adjust();
    LimitReadAhead();
    connect(m_line, &SerialLine::Arrived, this, &Comm::Serve);
    connect(m_line, &SerialLine::Sent, this, &Comm::OutputSent);
    connect(m_line, &SerialLine::Gone, this, &Comm::TakeGone);
}

void Comm::Adjust()
{
    if (!Give(*m_line, m_settings, m_takenSettings))
        m_settings = m_takenSettings;
    if (!Give(*m_line, m_flow, m_takenFlow))
        m_flow = m_takenFlow;
}

// A sender that nothing stops would lose what is not read.
void Comm::LimitReadAhead()
{
    m_line->LimitReadAhead(HasFlowControl() ? m_readAhead : 0);
}

void Comm::SetCommPort(int number)
{
    if (m_line != nullptr)
        throw Failure(FailureNumber::InvalidCall, QStringLiteral("The port is open"));
    m_commPort = number;
}

void Comm::SetSettings(const QString& text)
{
    Set(m_line, ReadSerialSettings(text), m_settings, m_takenSettings);
}

void Comm::SetHandshaking(std::int16_t number)
{
    Set(m_line, ReadFlowControl(number), m_flow, m_takenFlow);
    if (m_line != nullptr)
        LimitReadAhead();
}

QString Comm::Input()
{
    m_taken = true;
    QByteArray bytes = std::exchange(m_lastBytes, {});
    if (m_line != nullptr)
        bytes += m_line->TakeBytes();
    return m_decoder.Decode(bytes);
}

void Comm::Resume()
{
    if (m_line != nullptr && m_line->HasBytes())
        Serve();
}

bool Comm::Output(const QByteArray& bytes)
{
    if (m_line == nullptr || m_use == LineUse::Receive)
        return false;
    if (m_line->Unsent() + bytes.size() > OutputLimit) {
        m_hasRefused = true;
        return false;
    }
    m_line->Send(bytes);
    return true;
}

bool Comm::TakeRefusalNotice()
{
    return m_hasRefused && !std::exchange(m_refusalTold, true);
}

bool Comm::IsOutputFull() const
{
    return m_line != nullptr && m_line->Unsent() > OutputLimit / 2;
}

void Comm::Close()
{
    if (m_line != nullptr)
        Q_EMIT Closing();
    CloseLine();
}

// A handler of the line's own signal may close it, so the line is deleted only after the handler
// returns.
void Comm::CloseLine()
{
    m_lastBytes.clear();
    SerialLine* line = std::exchange(m_line, nullptr);
    if (line == nullptr)
        return;
    line->disconnect(this);
    line->Close();
    line->deleteLater();
}

void Comm::TakeGone()
{
    const QByteArray lastBytes = m_line->TakeBytes();
    CloseLine();
    m_lastBytes = lastBytes;
    Serve();
    Q_EMIT Closing();
}

void Comm::Serve()
{
    m_eventWaits = true;
    if (m_inHandler)
        return;
    m_inHandler = true;
    while (std::exchange(m_eventWaits, false)) {
        m_taken = false;
        Q_EMIT OnComm();
        // Bytes that arrived while the handler ran events were not signalled.
        m_eventWaits = m_eventWaits || (m_taken && m_line != nullptr && m_line->HasBytes());
    }
    m_inHandler = false;
}

} // namespace vantrel
