#pragma once

#include "ports/RecordCutter.h"
#include "station/capture/Pipeline.h"
#include "station/session/HostInputs.h"
#include <QObject>
#include <QTimer>
#include <deque>
#include <map>
#include <memory>
#include <optional>

namespace vantrel {

/// Gives each connection and the serial port an input of its own and takes every complete record,
/// one after the other: in the order in which their ends arrived, and in turn between inputs in
/// which several wait. While the road of records is busy, records wait. Of a sender that can be
/// made to wait no more is read while a complete record of it waits.
class RecordIntake : public QObject, public HostInputs
{
public:
    /// Connects nothing yet. The session must outlive it.
    explicit RecordIntake(Session& session);
    ~RecordIntake() override;

    /// The session's own, made at the first call.
    static RecordIntake& Of(Session& session);

    /// Takes records from the session's connections from now on.
    void ConnectSockets();
    /// Takes records from the session's serial port from now on.
    void ConnectComm();

    void DropIncomplete() override;
    void Stop() override;

private:
    struct Input
    {
        RecordCutter Cutter;
        /// A record that must not be taken while the ledger cannot be written; it is offered again.
        std::optional<QString> Refused;
        ArrivalSource Source;
        /// The element of a connection, 0 for the serial port.
        int Element = 0;
        /// Whether it waits in `m_ready`.
        bool IsReady = false;
        /// Whether its connection or port is closed; its complete records are still taken.
        bool HasEnded = false;
    };
    using InputPointer = std::shared_ptr<Input>;

    InputPointer NewInput(ArrivalSource source, int element) const;
    InputPointer InputOfHost(int element);
    void Append(const InputPointer& input, const QString& characters);
    void End(const InputPointer& input);
    void LogRest(Input& input) const;

    void OnHostData(int element);
    void OnHostClosed(int element);
    void OnHostClosing(int element);
    void OnSerialData();
    void OnSerialClosing();

    void FollowDelimiters();
    static bool HasRecord(Input& input);
    void MakeReady(const InputPointer& input);
    void ReadOn(const Input& input);
    void Schedule();
    void TakeNext();
    bool Take(const InputPointer& input, QString record);

    Session& m_session;
    /// The station's own delimiters; while the road is busy, a run of numbers may use others.
    QString m_dataStart;
    QString m_dataEnd;
    /// By element.
    std::map<int, InputPointer> m_hosts;
    /// Null while nothing has come since the port was opened.
    InputPointer m_serial;
    /// The inputs in which complete records wait.
    std::deque<InputPointer> m_ready;
    QTimer m_next;
    /// Whether the last record was refused.
    bool m_isRefused = false;
    bool m_stopped = false;
};

} // namespace vantrel
