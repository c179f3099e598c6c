#include "support/PrivatePooler.h"
#include "support/PrivatePostgres.h"
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QThread>
#include <gtest/gtest.h>
#include <libpq-fe.h>

namespace vantrel::test {

namespace {

constexpr int PatienceMilliseconds = 60'000;
constexpr unsigned long PollMilliseconds = 20;
/// It names the socket.
constexpr int Port = 6432;

} // namespace

PrivatePooler::PrivatePooler(const PrivatePostgres& server)
{
    PrivatePostgres::GiveToServer(m_folder.path());
    QFile settings(m_folder.filePath(QStringLiteral("pooler.ini")));
    EXPECT_TRUE(settings.open(QIODevice::WriteOnly));
    settings.write(QStringLiteral("[databases]\n"
                                  "* = host=%1\n"
                                  "[pgbouncer]\n"
                                  "unix_socket_dir = %2\n"
                                  "listen_port = %3\n"
                                  "logfile = %2/log\n"
                                  "auth_type = trust\n"
                                  "auth_file = %2/users\n"
                                  "pool_mode = transaction\n"
                                  "default_pool_size = %4\n")
                       .arg(QFileInfo(server.Socket()).path(), m_folder.path())
                       .arg(Port)
                       .arg(Connections)
                       .toUtf8());
    QFile users(m_folder.filePath(QStringLiteral("users")));
    EXPECT_TRUE(users.open(QIODevice::WriteOnly));
    users.write("\"vantrel\" \"\"\n");
    for (QFile* file : {&settings, &users}) {
        file->close();
        PrivatePostgres::GiveToServer(file->fileName());
    }
    m_address = Through(server.AddressAs(QStringLiteral("vantrel"))).toUtf8();
    m_pooler.setProcessChannelMode(QProcess::MergedChannels);
    m_pooler.setWorkingDirectory(m_folder.path());
    Start();
}

PrivatePooler::~PrivatePooler()
{
    Kill();
}

void PrivatePooler::Start()
{
    QStringList command = PrivatePostgres::AsServerUser(
        {QStringLiteral("/usr/sbin/pgbouncer"), m_folder.filePath(QStringLiteral("pooler.ini"))},
        QStringLiteral("TERM"));
    m_pooler.start(command.takeFirst(), command);
    EXPECT_TRUE(m_pooler.waitForStarted()) << "the package pgbouncer is not installed";
    QElapsedTimer limit;
    limit.start();
    while (PQping(m_address.constData()) != PQPING_OK && limit.elapsed() < PatienceMilliseconds &&
           m_pooler.state() == QProcess::Running)
        QThread::msleep(PollMilliseconds);
    EXPECT_EQ(PQping(m_address.constData()), PQPING_OK) << m_pooler.readAll().constData();
}

void PrivatePooler::Kill()
{
    m_pooler.kill();
    m_pooler.waitForFinished(PatienceMilliseconds);
}

QString PrivatePooler::Through(const QString& address) const
{
    const QString host = address.section(u' ', 0, 0);
    return QStringLiteral("host=%1 port=%2").arg(m_folder.path()).arg(Port) +
           address.mid(host.size());
}

} // namespace vantrel::test
