#pragma once

#include <QList>
#include <QMap>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>
#include <QVariant>
#include <memory>

namespace vantrel::test {

/// A PostgreSQL server of the test's own: a child process on a domain socket, with all its files in
/// a temporary folder. It ends with its owner, whatever becomes of that. A server that cannot be
/// started fails the test.
class PrivatePostgres
{
public:
    /// Whether a crash of the machine may lose what was committed, so that tests are faster.
    enum class Commits { Quick, Durable };

    explicit PrivatePostgres(Commits commits = Commits::Quick);
    /// A replica of another server, which waits for it with each commit from now on.
    explicit PrivatePostgres(PrivatePostgres& primary);
    PrivatePostgres(const PrivatePostgres&) = delete;
    PrivatePostgres& operator=(const PrivatePostgres&) = delete;
    ~PrivatePostgres();

    /// The one that all tests of a program share, started when it is first asked for.
    static PrivatePostgres& Shared();

    /// The address of a new and empty database.
    QString NewDatabase();
    /// The address of a new and empty schema in a database that all of these share; faster.
    QString NewSchema();
    void DropSchema(const QString& address);
    /// The address of a database as that user, whether or not they are there.
    QString AddressAs(const QString& user,
                      const QString& database = QStringLiteral("postgres")) const;
    /// From now on the server wants this user's password.
    void AskPasswordOf(const QString& user);

    /// The domain socket that the server listens on.
    QString Socket() const;
    /// The same database of the server, over a line of TCP on this machine.
    static QString Through(const QString& address, int port);
    /// Starts the server anew on a TCP port of this machine beside its socket, which takes
    /// connections in TLS alone, and wants a password of everybody but `vantrel`.
    /// @return the port
    int ListenWithTls(const QByteArray& certificate, const QByteArray& key);
    /// The command with which a program runs as a user that the server accepts, and ends by that
    /// signal with this process.
    static QStringList AsServerUser(const QStringList& command,
                                    const QString& signal = QStringLiteral("QUIT"));
    /// Makes a file or folder the server's own.
    static void GiveToServer(const QString& path);

    /// What the server has written about itself, such as each statement where that is set.
    QByteArray Log() const;

    /// Runs statements on a connection of its own. @return the first value of the first row
    static QString Run(const QString& address, const QString& sql);

    /// All rows of a result, by the names of the columns as this program writes them.
    static QList<QMap<QString, QVariant>> Rows(const QString& address, const QString& sql);

    /// The address of a database that two servers may keep, whichever of them can be written.
    static QString AddressOfBoth(const QString& database, const PrivatePostgres& first,
                                 const PrivatePostgres& second);
    /// Sets a setting of the whole server, as an administrator does.
    void Set(const QString& setting, const QString& value);
    /// Makes a replica the server that is written.
    void Promote();

    /// Kills the server and all it serves at once.
    void Kill();
    /// Lets the server and all it serves stand still, or go on.
    void StandStill(bool still);
    /// Starts it again after that, at the same address.
    void Start();

private:
    QString Address(const QString& database) const;
    void TakeFolder();
    void RunProgram(const QStringList& words);
    void MakeFiles();
    /// Writes a file that only the server may read.
    void WriteSecret(const QString& name, const QByteArray& bytes);
    void Stop(int signal);
    void LeaveToOwner();

    Commits m_commits;
    QTemporaryDir m_folder;
    QString m_programs;
    /// Settings that it is started with besides the usual ones.
    QStringList m_settings;
    std::unique_ptr<QProcess> m_server;
    qint64 m_owner;
    int m_count = 0;
    static constexpr int UsualPort = 5432;
    int m_port = UsualPort;
};

} // namespace vantrel::test
