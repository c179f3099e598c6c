#include "support/PrivatePostgres.h"
#include "store/LayoutTables.h"
#include "store/postgres/PostgresValues.h"
#include "support/HeldPort.h"
#include "support/ProcessSignal.h"
#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QRegularExpression>
#include <QThread>
#include <csignal>
#include <gtest/gtest.h>
#include <libpq-fe.h>
#include <memory>
#include <pwd.h>
#include <unistd.h>

namespace vantrel::test {

namespace {

constexpr int PatienceMilliseconds = 60'000;
constexpr unsigned long PollMilliseconds = 20;

/// The folder with the newest server's programs.
QString Programs()
{
    const QDir versions(QStringLiteral("/usr/lib/postgresql"));
    QString newest;
    int highest = 0;
    for (const QString& version : versions.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        if (version.toInt() > highest) {
            highest = version.toInt();
            newest = versions.filePath(version + QStringLiteral("/bin"));
        }
    }
    EXPECT_FALSE(newest.isEmpty()) << "the package postgresql is not installed";
    return newest;
}

struct Closer
{
    void operator()(PGconn* connection) const { PQfinish(connection); }
    void operator()(PGresult* result) const { PQclear(result); }
};

std::unique_ptr<PGresult, Closer> RunOn(const QString& address, const QString& sql)
{
    const std::unique_ptr<PGconn, Closer> connection(PQconnectdb(address.toUtf8().constData()));
    PQsetNoticeReceiver(
        connection.get(), [](void*, const PGresult*) {}, nullptr);
    std::unique_ptr<PGresult, Closer> result(PQexec(connection.get(), sql.toUtf8().constData()));
    const ExecStatusType status = PQresultStatus(result.get());
    EXPECT_TRUE(status == PGRES_COMMAND_OK || status == PGRES_TUPLES_OK)
        << PQerrorMessage(connection.get()) << sql.toStdString();
    return result;
}

/// The server knows the names of columns in small letters only.
QString OwnName(const char* column)
{
    for (const StoreTable& table : LayoutTables())
        for (const StoreColumnRow& one : table.Columns)
            if (QByteArray(one.Name).toLower() == column)
                return QString(QLatin1StringView(one.Name));
    for (const StoreColumnRow& one : ExtrasTable().Columns)
        if (QByteArray(one.Name).toLower() == column)
            return QString(QLatin1StringView(one.Name));
    return QString::fromUtf8(column);
}

} // namespace

PrivatePostgres::PrivatePostgres(Commits commits)
    : m_commits(commits), m_programs(Programs()), m_owner(QCoreApplication::applicationPid())
{
    MakeFiles();
    Start();
}

PrivatePostgres::PrivatePostgres(PrivatePostgres& primary)
    : m_commits(primary.m_commits), m_programs(primary.m_programs),
      m_owner(QCoreApplication::applicationPid())
{
    TakeFolder();
    RunProgram({QStringLiteral("pg_basebackup"), QStringLiteral("-D"),
                m_folder.filePath(QStringLiteral("data")), QStringLiteral("-h"),
                primary.m_folder.path(), QStringLiteral("-U"), QStringLiteral("vantrel"),
                QStringLiteral("-R"), QStringLiteral("-X"), QStringLiteral("stream"),
                QStringLiteral("-c"), QStringLiteral("fast"), QStringLiteral("--no-sync")});
    Start();
    primary.Set(QStringLiteral("synchronous_standby_names"), QStringLiteral("*"));
}

PrivatePostgres::~PrivatePostgres()
{
    if (m_owner == ::getpid())
        Stop(SIGQUIT);
    else
        LeaveToOwner();
}

/// In a fork of the owner, which would end the server with its handle.
void PrivatePostgres::LeaveToOwner()
{
    m_folder.setAutoRemove(false);
    [[maybe_unused]] const QProcess* server = m_server.release();
}

PrivatePostgres& PrivatePostgres::Shared()
{
    static std::unique_ptr<PrivatePostgres> server;
    if (!server) {
        server = std::make_unique<PrivatePostgres>();
        // Processes end in order only as long as the application is there.
        qAddPostRoutine([] { server.reset(); });
    }
    return *server;
}

QStringList PrivatePostgres::AsServerUser(const QStringList& command, const QString& signal)
{
    QStringList words{QStringLiteral("setpriv"), QStringLiteral("--pdeathsig"), signal};
    if (::geteuid() == 0)
        words += {QStringLiteral("--reuid"), QStringLiteral("postgres"), QStringLiteral("--regid"),
                  QStringLiteral("postgres"), QStringLiteral("--clear-groups")};
    return words + QStringList{QStringLiteral("--")} + command;
}

void PrivatePostgres::GiveToServer(const QString& path)
{
    if (::geteuid() != 0)
        return;
    const passwd* user = ::getpwnam("postgres");
    ASSERT_NE(user, nullptr) << "the server's user is missing";
    ASSERT_EQ(::chown(path.toUtf8().constData(), user->pw_uid, user->pw_gid), 0);
}

void PrivatePostgres::TakeFolder()
{
    GiveToServer(m_folder.path());
}

/// @param words  a program of the server's, and its arguments
void PrivatePostgres::WriteSecret(const QString& name, const QByteArray& bytes)
{
    QFile file(m_folder.filePath(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    file.write(bytes);
    file.close();
    GiveToServer(file.fileName());
}

int PrivatePostgres::ListenWithTls(const QByteArray& certificate, const QByteArray& key)
{
    WriteSecret(QStringLiteral("server.crt"), certificate);
    WriteSecret(QStringLiteral("server.key"), key);
    QFile rules(m_folder.filePath(QStringLiteral("data/pg_hba.conf")));
    EXPECT_TRUE(rules.open(QIODevice::WriteOnly));
    rules.write("local all all trust\nhostssl all vantrel 127.0.0.1/32 trust\n"
                "hostssl all all 127.0.0.1/32 scram-sha-256\n");
    rules.close();
    const HeldPort port;
    // The socket's name has the port in it.
    m_port = port.Number();
    m_settings = {
        QStringLiteral("ssl=on"),
        QStringLiteral("ssl_cert_file=") + m_folder.filePath(QStringLiteral("server.crt")),
        QStringLiteral("ssl_key_file=") + m_folder.filePath(QStringLiteral("server.key")),
        QStringLiteral("listen_addresses=127.0.0.1"), QStringLiteral("port=%1").arg(m_port)};
    Kill();
    Start();
    return m_port;
}

QByteArray PrivatePostgres::Log() const
{
    QFile log(m_folder.filePath(QStringLiteral("log")));
    EXPECT_TRUE(log.open(QIODevice::ReadOnly));
    return log.readAll();
}

void PrivatePostgres::RunProgram(const QStringList& words)
{
    QStringList command =
        AsServerUser(QStringList{m_programs + QLatin1Char('/') + words.first()} + words.mid(1));
    QProcess program;
    program.setWorkingDirectory(m_folder.path());
    program.setProcessChannelMode(QProcess::MergedChannels);
    program.start(command.takeFirst(), command);
    ASSERT_TRUE(program.waitForFinished(PatienceMilliseconds));
    ASSERT_EQ(program.exitCode(), 0) << program.readAll().toStdString();
}

void PrivatePostgres::MakeFiles()
{
    TakeFolder();
    RunProgram({QStringLiteral("initdb"), QStringLiteral("-D"),
                m_folder.filePath(QStringLiteral("data")), QStringLiteral("-A"),
                QStringLiteral("trust"), QStringLiteral("-U"), QStringLiteral("vantrel"),
                QStringLiteral("-E"), QStringLiteral("UTF8"), QStringLiteral("--locale=C"),
                QStringLiteral("--no-sync")});
}

QString PrivatePostgres::AddressOfBoth(const QString& database, const PrivatePostgres& first,
                                       const PrivatePostgres& second)
{
    return QStringLiteral("host=%1,%2 dbname=%3 user=vantrel target_session_attrs=read-write")
        .arg(first.m_folder.path(), second.m_folder.path(), database);
}

void PrivatePostgres::Set(const QString& setting, const QString& value)
{
    const QString address = Address(QStringLiteral("postgres"));
    Run(address, QStringLiteral("ALTER SYSTEM SET %1 = '%2'").arg(setting, value));
    Run(address, QStringLiteral("SELECT pg_reload_conf()"));
}

void PrivatePostgres::Promote()
{
    Run(Address(QStringLiteral("postgres")), QStringLiteral("SELECT pg_promote()"));
}

void PrivatePostgres::StandStill(bool still)
{
    const auto server = static_cast<pid_t>(m_server->processId());
    const int signal = still ? SIGSTOP : SIGCONT;
    // First the server, so that it begins nothing new.
    ::kill(server, signal);
    QFile children(QStringLiteral("/proc/%1/task/%1/children").arg(server));
    ASSERT_TRUE(children.open(QIODevice::ReadOnly));
    for (const QByteArray& child : children.readAll().simplified().split(' '))
        if (const int id = child.toInt(); id > 0)
            ::kill(id, signal);
}

void PrivatePostgres::Start()
{
    const QString folder = m_folder.path();
    QStringList options{QStringLiteral("listen_addresses="),
                        QStringLiteral("unix_socket_directories=") + folder,
                        QStringLiteral("shared_buffers=16MB"), QStringLiteral("max_connections=60"),
                        QStringLiteral("logging_collector=off")};
    if (m_commits == Commits::Quick)
        options += {QStringLiteral("fsync=off"), QStringLiteral("full_page_writes=off")};
    options += m_settings;
    QStringList words{m_programs + QStringLiteral("/postgres"), QStringLiteral("-D"),
                      m_folder.filePath(QStringLiteral("data"))};
    for (const QString& option : options)
        words += {QStringLiteral("-c"), option};
    QStringList command = AsServerUser(words);
    m_server = std::make_unique<QProcess>();
    m_server->setWorkingDirectory(folder);
    m_server->setProcessChannelMode(QProcess::MergedChannels);
    m_server->setStandardOutputFile(m_folder.filePath(QStringLiteral("log")), QIODevice::Append);
    m_server->start(command.takeFirst(), command);
    ASSERT_TRUE(m_server->waitForStarted());
    QElapsedTimer limit;
    limit.start();
    const QByteArray address = Address(QStringLiteral("postgres")).toUtf8();
    while (PQping(address.constData()) != PQPING_OK) {
        ASSERT_LT(limit.elapsed(), PatienceMilliseconds) << "the server does not start";
        QThread::msleep(PollMilliseconds);
    }
}

void PrivatePostgres::Stop(int signal)
{
    if (!m_server || m_server->state() == QProcess::NotRunning)
        return;
    SendSignalTo(*m_server, signal);
    if (!m_server->waitForFinished(PatienceMilliseconds))
        m_server->kill();
}

void PrivatePostgres::Kill()
{
    Stop(SIGQUIT);
}

QString PrivatePostgres::Address(const QString& database) const
{
    return AddressAs(QStringLiteral("vantrel"), database);
}

QString PrivatePostgres::AddressAs(const QString& user, const QString& database) const
{
    const QString port = m_port == UsualPort ? QString() : QStringLiteral(" port=%1").arg(m_port);
    return QStringLiteral("host=%1 dbname=%2 user=%3").arg(m_folder.path(), database, user) + port;
}

QString PrivatePostgres::Socket() const
{
    return m_folder.filePath(QStringLiteral(".s.PGSQL.%1").arg(m_port));
}

QString PrivatePostgres::Through(const QString& address, int port)
{
    const QString host = address.section(u' ', 0, 0);
    return QStringLiteral("host=127.0.0.1 port=%1").arg(port) + address.mid(host.size());
}

void PrivatePostgres::AskPasswordOf(const QString& user)
{
    QFile rules(m_folder.filePath(QStringLiteral("data/pg_hba.conf")));
    ASSERT_TRUE(rules.open(QIODevice::ReadWrite));
    const QByteArray others = rules.readAll();
    rules.seek(0);
    rules.write("local all " + user.toUtf8() + " scram-sha-256\n" + others);
    rules.close();
    Run(Address(QStringLiteral("postgres")), QStringLiteral("SELECT pg_reload_conf()"));
}

QString PrivatePostgres::NewDatabase()
{
    const QString name = QStringLiteral("store%1").arg(++m_count);
    Run(Address(QStringLiteral("postgres")), QStringLiteral("CREATE DATABASE ") + name);
    return Address(name);
}

QString PrivatePostgres::NewSchema()
{
    const QString name = QStringLiteral("s%1").arg(++m_count);
    const QString address = Address(QStringLiteral("postgres"));
    Run(address, QStringLiteral("CREATE SCHEMA ") + name);
    return address + QStringLiteral(" options=-csearch_path=") + name;
}

void PrivatePostgres::DropSchema(const QString& address)
{
    const QString name = address.section(QLatin1Char('='), -1);
    Run(Address(QStringLiteral("postgres")),
        QStringLiteral("DROP SCHEMA IF EXISTS %1 CASCADE").arg(name));
}

QString PrivatePostgres::Run(const QString& address, const QString& sql)
{
    const auto result = RunOn(address, sql);
    if (PQresultStatus(result.get()) != PGRES_TUPLES_OK || PQntuples(result.get()) == 0)
        return {};
    return QString::fromUtf8(PQgetvalue(result.get(), 0, 0));
}

QList<QMap<QString, QVariant>> PrivatePostgres::Rows(const QString& address, const QString& sql)
{
    QList<QMap<QString, QVariant>> rows;
    const auto result = RunOn(address, sql);
    for (int row = 0; row < PQntuples(result.get()); ++row) {
        auto& values = rows.emplace_back();
        for (int column = 0; column < PQnfields(result.get()); ++column)
            values.insert(OwnName(PQfname(result.get(), column)),
                          PostgresValue(result.get(), row, column));
    }
    return rows;
}

} // namespace vantrel::test
