#pragma once

#include "support/CardDriver.h"
#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>
#include <QTemporaryDir>

namespace vantrel::test {

/// A CUPS server of the test's own: a child process on a domain socket, with all its files in a
/// temporary folder. While it lives `CUPS_SERVER` and libcups in this process refer to it. Its
/// queues need no hardware: their jobs are copied into a folder of the test.
class PrivateCups
{
public:
    PrivateCups();
    PrivateCups(const PrivateCups&) = delete;
    PrivateCups& operator=(const PrivateCups&) = delete;
    ~PrivateCups();

    /// What a queue does with its jobs.
    enum class Device { Copies, Fails };

    /// A queue for cards of 54 by 86 millimetres (153 x 243 points) that takes PDF unchanged.
    void AddQueue(const QString& name, Device device = Device::Copies);
    /// A queue with this driver. A driver that takes dots needs the packages cups-filters and
    /// ghostscript.
    void AddQueue(const QString& name, const CardDriver& driver, Device device = Device::Copies);
    /// A queue that the server makes from what an IPP printer reports. Jobs do not go to that
    /// printer: they are copied as with any queue.
    void AddDriverlessQueue(const QString& name, const QString& printerUri);
    /// A queue that the server makes likewise, and whose jobs go to that printer.
    void AddPrinterQueue(const QString& name, const QString& printerUri);
    /// The driver's description as the server has it.
    QString DriverOf(const QString& name) const;
    /// Sets an option of the queue as its administrator, "name=value".
    void Configure(const QString& name, const QString& option);
    /// Sets options of the queue as a user of it does by `lpoptions`, each "name=value".
    void SetUserOptions(const QString& name, const QStringList& options);
    void MakeDefault(const QString& name);
    void Reject(const QString& name);
    void Accept(const QString& name);
    void Pause(const QString& name);
    void Resume(const QString& name);
    void Delete(const QString& name);
    /// Ends the server in order.
    void Stop();
    /// Kills the server.
    void Kill();
    /// Starts it again after either, with the queues it had.
    void Start();

    QString SocketPath() const { return m_folder.filePath(QStringLiteral("cups.sock")); }

    struct PrintedJob
    {
        /// The data that the driver gets: PDF, or dots where it takes those.
        QString PdfPath;
        QString Queue;
        QString Title;
        /// As the driver gets them: "name=value", with blanks between.
        QString Options;
    };
    /// Waits until that many jobs went through all queues. @return what there is, oldest first
    QList<PrintedJob> WaitForJobs(int count) const;
    /// How many jobs went through all queues so far. Does not wait.
    int CountOfPrinted() const;
    /// The path of the data of a job that went through its queue.
    QString DataOfJob(int job) const;
    /// The paths of the documents that the server has taken whole and keeps, printed or not,
    /// oldest first. Does not wait.
    QStringList DocumentsTaken() const;

private:
    bool Answers() const;
    /// @return the path of the driver that the server has made
    QString AddQueueOf(const QString& name, const QString& printerUri) const;
    void WriteFile(const QString& name, const QString& text, bool executable = false) const;
    void WriteConfiguration() const;
    void WriteBackend() const;
    void
    Run(const QString& tool, const QStringList& arguments,
        const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment()) const;

    QTemporaryDir m_folder;
    QByteArray m_serverBefore;
    QProcess m_server;
};

} // namespace vantrel::test
