#include "base/Profile.h"
#include "road/AdminRun.h"
#include "road/LedgerFolder.h"
#include "road/StationProcess.h"
#include "station/session/Settings.h"
#include "store/StoreDatabase.h"
#include "support/FailureOf.h"
#include "support/PrivatePostgres.h"
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <csignal>
#include <gtest/gtest.h>

// The roles and rights that the page about a shared store sets up, as they are written there.

namespace vantrel::test {
namespace {

const QString Password = QStringLiteral("opensesame");

/// The statements of the page's blocks of SQL, block by block.
QList<QStringList> StatementsOfPage()
{
    QFile file(QStringLiteral(VANTREL_DOCS "/shared-store.md"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    static const QRegularExpression block(QStringLiteral("^```sql\\n(.*?)^```$"),
                                          QRegularExpression::MultilineOption |
                                              QRegularExpression::DotMatchesEverythingOption);
    QList<QStringList> blocks;
    for (auto found = block.globalMatch(QString::fromUtf8(file.readAll())); found.hasNext();) {
        QStringList& statements = blocks.emplace_back();
        for (const QString& one : found.next().captured(1).split(u';'))
            if (!one.trimmed().isEmpty())
                statements.append(one.trimmed());
    }
    return blocks;
}

class SharedStore : public ::testing::Test
{
protected:
    SharedStore()
    {
        const QList<QStringList> blocks = StatementsOfPage();
        EXPECT_EQ(blocks.size(), 2);
        for (const QString& statement : blocks.value(0))
            PrivatePostgres::Run(Server.AddressAs(QStringLiteral("vantrel")), statement);
        EXPECT_EQ(RunAdmin({QStringLiteral("store"), QStringLiteral("copy"),
                            Folder.Session.ProgramFolder, Owner})
                      .Code,
                  0);
        for (const QString& statement : blocks.value(1))
            PrivatePostgres::Run(Owner, statement);
    }

    void Use(const QString& address) const
    {
        EXPECT_TRUE(WriteProfileValue(SettingsPath(Folder.Session.ProgramFolder),
                                      QStringLiteral("Store"), QStringLiteral("Database"),
                                      address));
    }

    /// Whether any file of the station's folder contains this.
    bool IsInFiles(const QByteArray& text) const
    {
        for (QDirIterator files(Folder.Session.ProgramFolder, QDir::Files | QDir::Hidden,
                                QDirIterator::Subdirectories);
             files.hasNext();) {
            QFile file(files.next());
            if (file.open(QIODevice::ReadOnly) && file.readAll().contains(text))
                return true;
        }
        return false;
    }

    PrivatePostgres Server{PrivatePostgres::Commits::Durable};
    QString Owner = Server.AddressAs(QStringLiteral("cards"), QStringLiteral("cards"));
    QString Station = Server.AddressAs(QStringLiteral("station"), QStringLiteral("cards"));
    LedgerFolder Folder;
};

TEST_F(SharedStore, AStationMayPrintAndSaveAndNothingElse)
{
    Use(Station);
    EXPECT_EQ(
        RunAdmin({QStringLiteral("store"), QStringLiteral("check"), Folder.Session.ProgramFolder})
            .Code,
        0);
    const int port = Folder.WithCapture();
    {
        StationProcess station(Folder.Session.ProgramFolder);
        ASSERT_TRUE(station.WaitUntilItListens(port));
        AskingHost host(port);
        EXPECT_EQ(host.Ask(QStringLiteral("Ada")), QStringLiteral("OK 1 1"));
        EXPECT_EQ(Folder.TextOfCard(1), QStringLiteral("Ada 7 1001"));
        station.SendSignal(SIGTERM);
        EXPECT_EQ(station.ExitCode(), 0);
        EXPECT_EQ(station.ErrorLines(), QStringList());
    }
    for (const char* statement :
         {"DROP TABLE controls", "TRUNCATE controls", "ALTER TABLE controls ADD further text",
          "CREATE TABLE further (id bigint)", "UPDATE vantrelstore SET version = 1"})
        EXPECT_EQ(
            FailureOf([&] { OpenStoreDatabase(Station)->Execute(QLatin1StringView(statement)); }),
            FailureNumber::StatementInvalid)
            << statement;
}

TEST_F(SharedStore, APasswordStandsInItsFileAlone)
{
    PrivatePostgres::Run(Server.AddressAs(QStringLiteral("vantrel")),
                         QStringLiteral("ALTER ROLE station PASSWORD '%1'").arg(Password));
    Server.AskPasswordOf(QStringLiteral("station"));
    EXPECT_NE(FailureOf([&] { OpenStoreDatabase(Station); }), 0);

    QTemporaryDir elsewhere;
    QFile passwords(elsewhere.filePath(QStringLiteral("passwords")));
    ASSERT_TRUE(passwords.open(QIODevice::WriteOnly));
    passwords.write("*:*:*:station:" + Password.toUtf8() + '\n');
    passwords.close();
    passwords.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    Use(Station + QStringLiteral(" passfile=") + passwords.fileName());
    const int port = Folder.WithCapture();
    StationProcess station(Folder.Session.ProgramFolder);
    ASSERT_TRUE(station.WaitUntilItListens(port));
    AskingHost host(port);
    EXPECT_EQ(host.Ask(QStringLiteral("Ada")), QStringLiteral("OK 1 1"));
    for (const char* list : {"cmdline", "environ"}) {
        QFile words(QStringLiteral("/proc/%1/").arg(station.Id()) + QLatin1StringView(list));
        ASSERT_TRUE(words.open(QIODevice::ReadOnly));
        EXPECT_FALSE(words.readAll().contains(Password.toUtf8())) << list;
    }
    EXPECT_FALSE(IsInFiles(Password.toUtf8()));
    // A server that asks for another password is away, and what it says shows none.
    PrivatePostgres::Run(Server.AddressAs(QStringLiteral("vantrel")),
                         QStringLiteral("ALTER ROLE station PASSWORD 'another'"));
    Server.Kill();
    Server.Start();
    ASSERT_TRUE(station.WaitUntilItTells(QStringLiteral("is away")));
    EXPECT_FALSE(station.ErrorLines().join(u'\n').contains(Password));
}

} // namespace
} // namespace vantrel::test
