#include "StoreTest.h"
#include "store/StoreDatabase.h"
#include "store/StoreUpgrade.h"
#include "support/PrivatePostgres.h"
#include <QFile>
#include <QProcess>

// A server on the network, to which a station speaks in TLS.

namespace vantrel::test {

namespace {

const QString Password = QStringLiteral("opensesame");

/// A certificate that vouches for itself, and its key.
struct Certificate
{
    explicit Certificate(const QString& folder, const QString& name)
        : Path(folder + u'/' + name + QStringLiteral(".crt"))
    {
        const QString key = folder + u'/' + name + QStringLiteral(".key");
        QProcess openssl;
        openssl.start(QStringLiteral("openssl"),
                      {QStringLiteral("req"), QStringLiteral("-x509"), QStringLiteral("-newkey"),
                       QStringLiteral("rsa:2048"), QStringLiteral("-nodes"),
                       QStringLiteral("-keyout"), key, QStringLiteral("-out"), Path,
                       QStringLiteral("-days"), QStringLiteral("2"), QStringLiteral("-subj"),
                       QStringLiteral("/CN=localhost"), QStringLiteral("-addext"),
                       QStringLiteral("subjectAltName=DNS:localhost")});
        EXPECT_TRUE(openssl.waitForFinished());
        EXPECT_EQ(openssl.exitCode(), 0) << openssl.readAllStandardError().constData();
        Public = BytesOf(Path);
        Key = BytesOf(key);
    }
    static QByteArray BytesOf(const QString& path)
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
        return file.readAll();
    }

    QString Path;
    QByteArray Public;
    QByteArray Key;
};

class ServerInTls : public ::testing::Test
{
protected:
    ServerInTls() { BringUpToDate(*OpenStoreDatabase(OnSocket), {}); }

    QString AddressOf(const QString& root, const QString& host = QStringLiteral("localhost"),
                      const QString& user = QStringLiteral("vantrel")) const
    {
        return QStringLiteral("host=%1 hostaddr=127.0.0.1 port=%2 dbname=%3 user=%4 "
                              "sslmode=verify-full sslrootcert=%5")
            .arg(host, QString::number(Port),
                 OnSocket.section(QStringLiteral("dbname="), 1).section(u' ', 0, 0), user, root);
    }
    /// What a station is told that cannot open the store.
    static QString RefusalOf(const QString& address)
    {
        Connection store;
        return FailureTextOf([&] { store.Open(address); });
    }

    QTemporaryDir Folder;
    Certificate Own{Folder.path(), QStringLiteral("own")};
    PrivatePostgres Server;
    int Port = Server.ListenWithTls(Own.Public, Own.Key);
    QString OnSocket = Server.NewDatabase();
};

} // namespace

TEST_F(ServerInTls, WithAKnownCertificateKeepsTheStore)
{
    Connection store;
    store.Open(AddressOf(Own.Path));
    StoreDatabase& database = store.Database();
    EXPECT_EQ(database
                  .Execute(QStringLiteral("SELECT ssl::text FROM pg_stat_ssl WHERE pid = "
                                          "pg_backend_pid()"))
                  .toString(),
              QStringLiteral("true"));
    // Also what takes many records of TLS.
    constexpr int length = 3'000'000;
    EXPECT_EQ(
        database.Execute(QStringLiteral("SELECT repeat('x', %1)").arg(length)).toString().size(),
        length);
    store.BeginTrans();
    database.InsertRow(QStringLiteral("Controls"), {QStringLiteral("C_Value")},
                       {QString(length, u'x')}, nullptr);
    store.CommitTrans();
    EXPECT_EQ(
        PrivatePostgres::Run(OnSocket, QStringLiteral("SELECT length(C_Value) FROM Controls")),
        QString::number(length));
}

TEST_F(ServerInTls, WithAnotherCertificateIsRefusedInOneLine)
{
    const Certificate other(Folder.path(), QStringLiteral("other"));
    const QString refusal = RefusalOf(AddressOf(other.Path));
    EXPECT_TRUE(refusal.startsWith(QStringLiteral("The store localhost/")))
        << refusal.toStdString();
    EXPECT_TRUE(refusal.contains(QStringLiteral("certificate verify failed")))
        << refusal.toStdString();
    EXPECT_FALSE(refusal.contains(u'\n')) << refusal.toStdString();
    EXPECT_EQ(RefusalOf(AddressOf(Own.Path)), QString());
}

TEST_F(ServerInTls, OfAnotherNameIsRefusedInOneLine)
{
    const QString refusal = RefusalOf(AddressOf(Own.Path, QStringLiteral("another")));
    EXPECT_TRUE(refusal.contains(QStringLiteral("does not match host name \"another\"")))
        << refusal.toStdString();
    EXPECT_FALSE(refusal.contains(u'\n')) << refusal.toStdString();
}

TEST_F(ServerInTls, IsNeverAskedInPlainText)
{
    const QString plain =
        AddressOf(Own.Path).replace(QStringLiteral("verify-full"), QStringLiteral("disable"));
    EXPECT_TRUE(RefusalOf(plain).contains(QStringLiteral("no encryption")))
        << RefusalOf(plain).toStdString();
}

TEST_F(ServerInTls, TakesAPasswordThatNobodySees)
{
    PrivatePostgres::Run(OnSocket, QStringLiteral("CREATE ROLE till LOGIN PASSWORD '%1'; GRANT "
                                                  "SELECT ON ALL TABLES IN SCHEMA public TO till")
                                       .arg(Password));
    QFile passwords(Folder.filePath(QStringLiteral("passwords")));
    ASSERT_TRUE(passwords.open(QIODevice::WriteOnly));
    passwords.write("*:*:*:till:" + Password.toUtf8() + '\n');
    passwords.close();
    passwords.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    const QString address =
        AddressOf(Own.Path, QStringLiteral("localhost"), QStringLiteral("till")) +
        QStringLiteral(" passfile=") + passwords.fileName();
    EXPECT_EQ(RefusalOf(address), QString());
    PrivatePostgres::Run(OnSocket, QStringLiteral("ALTER ROLE till PASSWORD 'another'"));
    const QString refusal = RefusalOf(address);
    EXPECT_TRUE(refusal.contains(QStringLiteral("password authentication failed")))
        << refusal.toStdString();
    EXPECT_FALSE(refusal.contains(Password));
    EXPECT_FALSE(refusal.contains(u'\n'));
}

} // namespace vantrel::test
