#include "ports/Comm.h"
#include "base/CodePage.h"
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
    m_line = m_maker(DevicePath()).release();
    m_line->setParent(this);
    Adjust();
    connect(m_line, &SerialLine::Arrived, this, &Comm::Serve);
    connect(m_line, &SerialLine::Gone, this, &Comm::TakeGone);
}

void Comm::Adjust()
{
    if (!Give(*m_line, m_settings, m_takenSettings))
        m_settings = m_takenSettings;
    if (!Give(*m_line, m_flow, m_takenFlow))
        m_flow = m_takenFlow;
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
}

QString Comm::Input()
{
    QByteArray bytes = std::exchange(m_lastBytes, {});
    if (m_line != nullptr)
        bytes += m_line->TakeBytes();
    return FromCodePage(bytes);
}

// A handler of the line's own signal may close it, so the line is deleted only after the handler
// returns.
void Comm::Close()
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
    Close();
    m_lastBytes = lastBytes;
    Serve();
}

void Comm::Serve()
{
    m_eventWaits = true;
    if (m_inHandler)
        return;
    m_inHandler = true;
    while (std::exchange(m_eventWaits, false)) {
        Q_EMIT OnComm();
        // Bytes that arrived while the handler ran events were not signalled.
        m_eventWaits = m_eventWaits || (m_line != nullptr && m_line->HasBytes());
    }
    m_inHandler = false;
}

} // namespace vantrel
