#include "support/PrivateCups.h"
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLocalSocket>
#include <QThread>
#include <algorithm>
#include <cups/cups.h>
#include <gtest/gtest.h>
#include <set>
#include <span>

namespace vantrel::test {

namespace {

constexpr int PatienceMilliseconds = 20000;
constexpr unsigned long PollMilliseconds = 10;
const QString Lpadmin = QStringLiteral("/usr/sbin/lpadmin");
const QString CopyingDevice = QStringLiteral("testcopy:/copies");

constexpr auto ServerConfiguration = R"(Listen %1/cups.sock
Browsing Off
WebInterface No
DefaultAuthType None
MaxJobs 0
DirtyCleanInterval 0
LogLevel warn
<Location />
  Order allow,deny
  Allow all
</Location>
<Policy default>
  <Limit All>
    Order allow,deny
    Allow all
  </Limit>
</Policy>
)";

constexpr auto FilesConfiguration = R"(ServerRoot %1
ServerBin %1/bin
RequestRoot %1/spool
CacheDir %1/cache
StateDir %1/state
TempDir %1/tmp
AccessLog %1/access.log
ErrorLog %1/error.log
PageLog %1/page.log
Sandboxing Relaxed
)";

/// Prints by copying; the PDF is put in place last, when the files that describe it are there. Of a
/// server that was killed one may still run when the next server prints the same job.
constexpr auto Backend = R"sh(#!/bin/sh
[ $# -eq 0 ] && { echo 'direct testcopy "Unknown" "Copies jobs"'; exit 0; }
case "$DEVICE_URI" in *fails*) echo 'ERROR: The ribbon is torn' >&2; exit 1;; esac
out="%1/printed/$(printf %06d "$1")"
printf %s "$PRINTER" > "$out.queue"
printf %s "$3" > "$out.title"
printf %s "$5" > "$out.options"
cat ${6:+"$6"} > "$out.part.$$"
mv "$out.part.$$" "$out.pdf"
)sh";

/// The folder in which libcups finds the options that users set for queues. libcups looks it up
/// only once, so there is one folder for the whole process, and never that of the person who runs
/// the tests.
class OptionsOfUsers
{
public:
    OptionsOfUsers() { qputenv("CUPS_SERVERROOT", m_folder.path().toUtf8()); }
    QString Path(const QString& name = QStringLiteral("lpoptions")) const
    {
        return m_folder.filePath(name);
    }

private:
    QTemporaryDir m_folder;
};

const OptionsOfUsers UserOptions;

bool HasDriver(const QString& queue)
{
    cups_dest_t* found = cupsGetNamedDest(CUPS_HTTP_DEFAULT, queue.toUtf8().constData(), nullptr);
    if (found == nullptr)
        return false;
    const QByteArray model(
        cupsGetOption("printer-make-and-model", found->num_options, found->options));
    cupsFreeDests(1, found);
    return model.contains("Everywhere");
}

QString TextOf(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll());
}

} // namespace

PrivateCups::PrivateCups() : m_serverBefore(qgetenv("CUPS_SERVER"))
{
    EXPECT_TRUE(m_folder.isValid());
    // The server's helpers run as another user and read the folder.
    QFile::setPermissions(m_folder.path(), QFile::permissions(m_folder.path()) | QFile::ReadGroup |
                                               QFile::ExeGroup | QFile::ReadOther |
                                               QFile::ExeOther);
    WriteConfiguration();
    WriteBackend();
    QFile::remove(UserOptions.Path());
    qputenv("CUPS_SERVER", SocketPath().toUtf8());
    cupsSetServer(SocketPath().toUtf8().constData());

    m_server.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    Start();
}

// The socket is there before the server listens on it.
bool PrivateCups::Answers() const
{
    QLocalSocket socket;
    socket.connectToServer(SocketPath());
    return socket.waitForConnected(PatienceMilliseconds);
}

void PrivateCups::Start()
{
    QFile::remove(SocketPath());
    m_server.start(QStringLiteral("/usr/sbin/cupsd"),
                   {QStringLiteral("-f"), QStringLiteral("-c"),
                    m_folder.filePath(QStringLiteral("cupsd.conf")), QStringLiteral("-s"),
                    m_folder.filePath(QStringLiteral("cups-files.conf"))});
    EXPECT_TRUE(m_server.waitForStarted()) << "the package cups is needed";
    QElapsedTimer waited;
    waited.start();
    while (!Answers() && !waited.hasExpired(PatienceMilliseconds))
        QThread::msleep(PollMilliseconds);
    EXPECT_TRUE(Answers()) << TextOf(m_folder.filePath(QStringLiteral("error.log"))).toStdString();
}

PrivateCups::~PrivateCups()
{
    if (m_server.state() != QProcess::NotRunning) {
        m_server.terminate();
        if (!m_server.waitForFinished())
            Kill();
    }
    if (m_serverBefore.isNull())
        qunsetenv("CUPS_SERVER");
    else
        qputenv("CUPS_SERVER", m_serverBefore);
    cupsSetServer(m_serverBefore.isNull() ? nullptr : m_serverBefore.constData());
}

void PrivateCups::WriteFile(const QString& name, const QString& text, bool executable) const
{
    QFile file(m_folder.filePath(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text.toUtf8());
    file.close();
    if (executable)
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

void PrivateCups::WriteConfiguration() const
{
    const QDir folder(m_folder.path());
    for (const char* name : {"spool", "cache", "state", "tmp", "printed", "bin/backend", "ppd"})
        EXPECT_TRUE(folder.mkpath(QLatin1StringView(name)));
    QFile::setPermissions(m_folder.filePath(QStringLiteral("tmp")), QFile::Permissions(0x7777));
    WriteFile(QStringLiteral("cupsd.conf"),
              QString::fromLatin1(ServerConfiguration).arg(m_folder.path()));
    WriteFile(QStringLiteral("cups-files.conf"),
              QString::fromLatin1(FilesConfiguration).arg(m_folder.path()));
}

void PrivateCups::WriteBackend() const
{
    const QString installed = QStringLiteral("/usr/lib/cups/");
    for (const char* name : {"cgi-bin", "daemon", "driver", "filter", "monitor", "notifier"})
        QFile::link(installed + QLatin1StringView(name),
                    m_folder.filePath(QStringLiteral("bin/") + QLatin1StringView(name)));
    // The server queries a printer with this program; without it there are no driverless queues.
    QFile::link(installed + QStringLiteral("backend/ipp"),
                m_folder.filePath(QStringLiteral("bin/backend/ipp")));
    // With this mode the server runs it as its own user.
    WriteFile(QStringLiteral("bin/backend/testcopy"),
              QString::fromLatin1(Backend).arg(m_folder.path()), true);
}

void PrivateCups::Run(const QString& tool, const QStringList& arguments,
                      const QProcessEnvironment& environment) const
{
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(tool, arguments);
    EXPECT_TRUE(process.waitForFinished(PatienceMilliseconds)) << tool.toStdString();
    EXPECT_EQ(process.exitCode(), 0) << tool.toStdString() << ": " << process.readAll().constData();
}

void PrivateCups::AddQueue(const QString& name, Device device)
{
    AddQueue(name, CardDriver{}, device);
}

void PrivateCups::AddQueue(const QString& name, const CardDriver& driver, Device device)
{
    const QString ppd = QStringLiteral("ppd-of-") + name;
    WriteFile(ppd, QString::fromLatin1(PpdOf(driver)));
    Run(Lpadmin, {QStringLiteral("-p"), name, QStringLiteral("-E"), QStringLiteral("-v"),
                  device == Device::Fails ? QStringLiteral("testcopy:/fails") : CopyingDevice,
                  QStringLiteral("-P"), m_folder.filePath(ppd)});
}

// The server queries the printer and writes a driver of its own while it answers other requests.
QString PrivateCups::AddQueueOf(const QString& name, const QString& printerUri) const
{
    Run(Lpadmin, {QStringLiteral("-p"), name, QStringLiteral("-E"), QStringLiteral("-v"),
                  printerUri, QStringLiteral("-m"), QStringLiteral("everywhere")});
    QString driver = m_folder.filePath(QStringLiteral("ppd/%1.ppd").arg(name));
    QElapsedTimer waited;
    waited.start();
    while ((!QFile::exists(driver) || !HasDriver(name)) && !waited.hasExpired(PatienceMilliseconds))
        QThread::msleep(PollMilliseconds);
    return driver;
}

void PrivateCups::AddPrinterQueue(const QString& name, const QString& printerUri)
{
    AddQueueOf(name, printerUri);
}

void PrivateCups::AddDriverlessQueue(const QString& name, const QString& printerUri)
{
    const QString asking = name + QStringLiteral("-asking");
    const QString driver = AddQueueOf(asking, printerUri);
    Run(Lpadmin, {QStringLiteral("-p"), name, QStringLiteral("-E"), QStringLiteral("-v"),
                  CopyingDevice, QStringLiteral("-P"), driver});
    Delete(asking);
}

QString PrivateCups::DriverOf(const QString& name) const
{
    return TextOf(m_folder.filePath(QStringLiteral("ppd/%1.ppd").arg(name)));
}

void PrivateCups::Configure(const QString& name, const QString& option)
{
    Run(Lpadmin, {QStringLiteral("-p"), name, QStringLiteral("-o"), option});
}

void PrivateCups::SetUserOptions(const QString& name, const QStringList& options)
{
    QStringList arguments{QStringLiteral("-p"), name};
    for (const QString& option : options)
        arguments << QStringLiteral("-o") << option;
    QProcessEnvironment home = QProcessEnvironment::systemEnvironment();
    home.insert(QStringLiteral("HOME"), UserOptions.Path(QString()));
    Run(QStringLiteral("lpoptions"), arguments, home);
    // A user's own file of it stands in the home folder, which libcups has looked up long ago.
    const QString own = UserOptions.Path(QStringLiteral(".cups/lpoptions"));
    if (QFile::exists(own)) {
        QFile::remove(UserOptions.Path());
        EXPECT_TRUE(QFile::rename(own, UserOptions.Path()));
    }
}

void PrivateCups::MakeDefault(const QString& name)
{
    Run(Lpadmin, {QStringLiteral("-d"), name});
}

void PrivateCups::Reject(const QString& name)
{
    Run(QStringLiteral("/usr/sbin/cupsreject"), {name});
}

void PrivateCups::Accept(const QString& name)
{
    Run(QStringLiteral("/usr/sbin/cupsaccept"), {name});
}

void PrivateCups::Resume(const QString& name)
{
    Run(QStringLiteral("/usr/sbin/cupsenable"), {name});
}

void PrivateCups::Pause(const QString& name)
{
    Run(QStringLiteral("/usr/sbin/cupsdisable"), {name});
}

void PrivateCups::Delete(const QString& name)
{
    Run(Lpadmin, {QStringLiteral("-x"), name});
}

void PrivateCups::Stop()
{
    m_server.terminate();
    EXPECT_TRUE(m_server.waitForFinished(PatienceMilliseconds));
}

void PrivateCups::Kill()
{
    m_server.kill();
    m_server.waitForFinished();
}

int PrivateCups::CountOfPrinted() const
{
    const QDir printed(m_folder.filePath(QStringLiteral("printed")));
    return static_cast<int>(printed.entryList({QStringLiteral("*.pdf")}, QDir::Files).size());
}

QString PrivateCups::DataOfJob(int job) const
{
    return m_folder.filePath(QStringLiteral("printed/%1.pdf").arg(job, 6, 10, QLatin1Char('0')));
}

QStringList PrivateCups::DocumentsTaken() const
{
    cups_job_t* jobs = nullptr;
    const int count = cupsGetJobs2(CUPS_HTTP_DEFAULT, &jobs, nullptr, 0, CUPS_WHICHJOBS_ALL);
    // A server that was killed may have a job twice in its list.
    std::set<int> ids;
    for (const cups_job_t& job : std::span(jobs, static_cast<std::size_t>(std::max(0, count)))) {
        if (job.size > 0)
            ids.insert(job.id);
    }
    cupsFreeJobs(count, jobs);
    QStringList documents;
    for (const int id : ids)
        documents.append(
            m_folder.filePath(QStringLiteral("spool/d%1-001").arg(id, 5, 10, QLatin1Char('0'))));
    return documents;
}

QList<PrivateCups::PrintedJob> PrivateCups::WaitForJobs(int count) const
{
    const QDir printed(m_folder.filePath(QStringLiteral("printed")));
    const QStringList pdfs{QStringLiteral("*.pdf")};
    QElapsedTimer waited;
    waited.start();
    while (CountOfPrinted() < count && !waited.hasExpired(PatienceMilliseconds))
        QThread::msleep(PollMilliseconds);
    QList<PrintedJob> jobs;
    for (const QFileInfo& pdf : printed.entryInfoList(pdfs, QDir::Files, QDir::Name)) {
        const QString without = printed.filePath(pdf.completeBaseName());
        jobs.append({pdf.filePath(), TextOf(without + QStringLiteral(".queue")),
                     TextOf(without + QStringLiteral(".title")),
                     TextOf(without + QStringLiteral(".options"))});
    }
    return jobs;
}

} // namespace vantrel::test
