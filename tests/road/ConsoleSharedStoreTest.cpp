#include "base/Profile.h"
#include "road/AdminRun.h"
#include "road/ConsoleProcess.h"
#include "road/LedgerFolder.h"
#include "road/StationProcess.h"
#include "station/session/Settings.h"
#include "support/Events.h"
#include "support/PrivatePostgres.h"
#include "support/SlowLine.h"
#include <QJsonArray>
#include <QSysInfo>
#include <csignal>

// One console for the stations of several folders that share a store on a server.

namespace vantrel::test {
namespace {

/// A station of a folder of its own.
struct SharingStation
{
    SharingStation(const QString& address, std::uint8_t session) : Port(Folder.WithCapture(session))
    {
        EXPECT_TRUE(WriteProfileValue(SettingsPath(Folder.Session.ProgramFolder),
                                      QStringLiteral("Store"), QStringLiteral("Database"),
                                      address));
        Process = std::make_unique<StationProcess>(
            Folder.Session.ProgramFolder, StationStart{.Arguments = {QString::number(session)}});
        EXPECT_TRUE(Process->WaitUntilItListens(Port));
    }

    LedgerFolder Folder;
    int Port;
    std::unique_ptr<StationProcess> Process;
};

class ConsoleSharedStore : public ::testing::Test
{
protected:
    ConsoleSharedStore()
    {
        QFile file(First->Folder.Session.PathInFolder(QStringLiteral("Console.token")));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        Headers = {{"Authorization", "Bearer " + file.readAll().trimmed()},
                   {"Content-Type", "application/json"}};
    }
    /// A store with the layout of such a folder.
    QString NewStore()
    {
        const LedgerFolder model;
        QString address = Server.NewDatabase();
        EXPECT_EQ(RunAdmin({QStringLiteral("store"), QStringLiteral("copy"),
                            model.Session.ProgramFolder, address})
                      .Code,
                  0);
        return address;
    }
    HttpAnswer Get(const QByteArray& target)
    {
        return Ask(Console->Port(), "GET", target, Headers);
    }
    HttpAnswer Post(const QByteArray& target, const QByteArray& body = {})
    {
        return Ask(Console->Port(), "POST", target, Headers, body);
    }
    QJsonArray Stations() { return Get("/api/v1/stations").Json()[u"stations"].toArray(); }
    static QString MachineOf(const SharingStation& station)
    {
        return QSysInfo::machineHostName() + u':' + station.Folder.Session.ProgramFolder;
    }

    PrivatePostgres Server;
    QString Address = NewStore();
    std::unique_ptr<SharingStation> First = std::make_unique<SharingStation>(Address, 1);
    std::unique_ptr<SharingStation> Second = std::make_unique<SharingStation>(Address, 2);
    std::unique_ptr<ConsoleProcess> Console =
        std::make_unique<ConsoleProcess>(First->Folder.Session.ProgramFolder);
    HttpHeaders Headers;
};

TEST_F(ConsoleSharedStore, ShowsTheStationsOfAllFoldersAndAsksThem)
{
    EXPECT_EQ(WithoutId(AskingHost(First->Port).Ask(QStringLiteral("Ada"))),
              QStringLiteral("OK 1"));
    const QString answer = AskingHost(Second->Port).Ask(QStringLiteral("Grace"));
    EXPECT_EQ(WithoutId(answer), QStringLiteral("OK 1"));
    const QByteArray path = "/api/v1/records/" + answer.section(u' ', 1, 1).toLatin1();

    EXPECT_TRUE(EventsUntil([this] { return Get("/healthz").Status == 200; }));
    QMap<int, QString> machines;
    for (const auto& station : Stations()) {
        machines.insert(station[u"session"].toInt(), station[u"machine"].toString());
        EXPECT_EQ(station[u"state"].toString(), QStringLiteral("alive"));
    }
    EXPECT_EQ(machines, (QMap<int, QString>{{1, MachineOf(*First)}, {2, MachineOf(*Second)}}));

    const QJsonArray found = Get("/api/v1/records?text=grace").Json()[u"records"].toArray();
    ASSERT_EQ(found.size(), 1);
    EXPECT_EQ(found[0][u"session"].toInt(), 2);
    EXPECT_EQ(Get(path + "/cards/1.png").Status, 200);

    ASSERT_EQ(Post(path + "/reprint").Status, 201);
    EXPECT_EQ(Second->Folder.TextOfCard(2), QStringLiteral("Grace 7 1002"));
    ASSERT_EQ(
        Post("/api/v1/records", R"({"layout": "Badge", "values": ["Hand", "7"], "session": 2})")
            .Status,
        201);
    EXPECT_EQ(Second->Folder.TextOfCard(3), QStringLiteral("Hand 7 1003"));
    EXPECT_EQ(First->Folder.Cards().size(), 1);

    Second->Process->SendSignal(SIGTERM);
    ASSERT_EQ(Second->Process->ExitCode(), 0);
    for (const auto& station : Stations())
        EXPECT_EQ(station[u"state"].toString(), station[u"session"].toInt() == 2
                                                    ? QStringLiteral("ended")
                                                    : QStringLiteral("alive"));
    EXPECT_EQ(Get("/healthz").Status, 200);
}

TEST_F(ConsoleSharedStore, ThatIsAwayIsToldUntilItIsBack)
{
    HttpClient viewer(Console->Port());
    viewer.Send(RequestText("GET", "/api/v1/events", Headers));
    ASSERT_TRUE(viewer.ReceiveUntil("retry"));
    // The console's answers come in turn, so its first look, whose finds are no news, is over.
    ASSERT_EQ(Stations().size(), 2);
    AskingHost host(Second->Port);
    EXPECT_EQ(WithoutId(host.Ask(QStringLiteral("Ada"))), QStringLiteral("OK 1"));
    ASSERT_TRUE(viewer.ReceiveUntil("Ada"));

    Server.Kill();
    ASSERT_TRUE(viewer.ReceiveUntil("event: trouble\ndata: {\"text\": \"The store "));
    const HttpAnswer health = Get("/healthz");
    EXPECT_EQ(health.Status, 503);
    EXPECT_EQ(health.Body, "the store is away\n");
    for (const char* target : {"/api/v1/records", "/api/v1/stations", "/api/v1/counts",
                               "/api/v1/records/1", "/api/v1/records/1/cards/1.png"}) {
        const HttpAnswer answer = Get(target);
        EXPECT_EQ(answer.Status, 503) << target;
        EXPECT_TRUE(answer.Json()[u"error"].toString().contains(QStringLiteral("is away")))
            << answer.Body.toStdString();
    }
    EXPECT_EQ(Get("/metrics").Status, 503);
    EXPECT_EQ(Post("/api/v1/records/1/reprint").Status, 503);
    EXPECT_TRUE(Console->IsRunning());

    Server.Start();
    ASSERT_TRUE(viewer.ReceiveUntil("{\"text\": \"\"}"));
    EXPECT_EQ(WithoutId(host.Ask(QStringLiteral("Grace"))), QStringLiteral("OK 1"));
    EXPECT_TRUE(viewer.ReceiveUntil("Grace"));
    EXPECT_TRUE(EventsUntil([this] { return Get("/healthz").Status == 200; }));
    EXPECT_EQ(Get("/api/v1/records?text=grace").Json()[u"records"].toArray().size(), 1);
    EXPECT_TRUE(Get("/metrics").Body.contains("vantrel_records_total{station=\"2\"} 2\n"));
}

TEST_F(ConsoleSharedStore, OnAServerThatIsSlowIsTakenForAwayByNoLengthOfTime)
{
    SlowLine line(Server.Socket());
    const LedgerFolder folder;
    EXPECT_TRUE(WriteProfileValue(SettingsPath(folder.Session.ProgramFolder),
                                  QStringLiteral("Store"), QStringLiteral("Database"),
                                  PrivatePostgres::Through(Address, line.Port())));
    const ConsoleProcess console(folder.Session.ProgramFolder);
    line.SetDelay(300);
    // All answers together take longer than the server is given for one question.
    constexpr int questions = 40;
    int answered = 0;
    for (int i = 0; i < questions; ++i)
        answered +=
            Ask(console.Port(), "GET", "/healthz", {}).Body == "the store is away\n" ? 0 : 1;
    EXPECT_EQ(answered, questions);
}

} // namespace
} // namespace vantrel::test
