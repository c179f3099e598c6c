#include "support/IppPrinter.h"
#include <QElapsedTimer>
#include <QFile>
#include <QProcessEnvironment>
#include <QTcpServer>
#include <QTcpSocket>
#include <QThread>
#include <gtest/gtest.h>

namespace vantrel::test {

namespace {

constexpr int PatienceMilliseconds = 20000;
constexpr unsigned long PollMilliseconds = 10;

int FreePort()
{
    QTcpServer server;
    EXPECT_TRUE(server.listen(QHostAddress::LocalHost));
    return server.serverPort();
}

/// Prints by copying the last of its arguments; the job's number comes with the environment.
constexpr auto PrintCommand = R"sh(#!/bin/sh
[ -e '%1/jammed' ] && { echo 'ERROR: The ribbon is torn' >&2; exit 1; }
for document; do :; done
cp "$document" "%1/part" && mv '%1/part' "%1/printed-$IPP_JOB_ID.pdf"
)sh";

void End(QProcess& process)
{
    process.terminate();
    if (!process.waitForFinished(PatienceMilliseconds))
        process.kill();
}

} // namespace

IppPrinter::IppPrinter(const CardDriver& driver)
{
    EXPECT_TRUE(m_folder.isValid());
    const QString ppd = m_folder.filePath(QStringLiteral("card.ppd"));
    QFile file(ppd);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(PpdOf(driver));
    file.close();
    StartBus();
    m_port = FreePort();
    m_printer.start(QStringLiteral("/usr/sbin/ippeveprinter"),
                    {QStringLiteral("--no-web-forms"), QStringLiteral("-r"), QStringLiteral("off"),
                     QStringLiteral("-d"), m_folder.path(), QStringLiteral("-c"),
                     WritePrintCommand(), QStringLiteral("-P"), ppd, QStringLiteral("-p"),
                     QString::number(m_port), QStringLiteral("Cards")});
    EXPECT_TRUE(m_printer.waitForStarted()) << "the package cups-ipp-utils is needed";
    QElapsedTimer waited;
    waited.start();
    while (!Answers() && !waited.hasExpired(PatienceMilliseconds))
        QThread::msleep(PollMilliseconds);
    EXPECT_TRUE(Answers()) << m_printer.readAllStandardError().constData();
}

IppPrinter::~IppPrinter()
{
    End(m_printer);
    End(m_bus);
}

QString IppPrinter::WritePrintCommand() const
{
    QString path = m_folder.filePath(QStringLiteral("print"));
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QString::fromLatin1(PrintCommand).arg(m_folder.path()).toUtf8());
    EXPECT_TRUE(file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    return path;
}

void IppPrinter::SetJammed(bool on) const
{
    QFile mark(m_folder.filePath(QStringLiteral("jammed")));
    EXPECT_TRUE(on ? mark.open(QIODevice::WriteOnly) : mark.remove());
}

QString IppPrinter::DocumentOf(int job) const
{
    const QString path = m_folder.filePath(QStringLiteral("printed-%1.pdf").arg(job));
    return QFile::exists(path) ? path : QString();
}

// The program does not run without a system message bus, which a test machine may lack.
void IppPrinter::StartBus()
{
    const QString address = QStringLiteral("unix:path=") + m_folder.filePath(QStringLiteral("bus"));
    m_bus.start(QStringLiteral("dbus-daemon"),
                {QStringLiteral("--session"), QStringLiteral("--nofork"),
                 QStringLiteral("--print-address"), QStringLiteral("--address=") + address});
    while (!m_bus.canReadLine() && m_bus.waitForReadyRead(PatienceMilliseconds))
        ;
    EXPECT_TRUE(m_bus.canReadLine()) << "the package dbus-daemon is needed";
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DBUS_SYSTEM_BUS_ADDRESS"), address);
    m_printer.setProcessEnvironment(environment);
}

bool IppPrinter::Answers() const
{
    QTcpSocket socket;
    socket.connectToHost(QStringLiteral("localhost"), static_cast<quint16>(m_port));
    return socket.waitForConnected(PatienceMilliseconds);
}

QString IppPrinter::Uri() const
{
    return QStringLiteral("ipp://localhost:%1/ipp/print").arg(m_port);
}

} // namespace vantrel::test
