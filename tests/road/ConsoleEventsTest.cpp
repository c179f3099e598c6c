#include "ledger/LedgerStations.h"
#include "road/ConsoleProcess.h"
#include "support/Events.h"
#include "support/Memory.h"
#include <QDateTime>
#include <QSysInfo>

// What the console tells by itself, as it happens.

namespace vantrel::test {
namespace {

class ConsoleEvents : public ConsoleTest
{
protected:
    /// A viewer who has been let in and has missed nothing since.
    std::unique_ptr<HttpClient> Viewer(const HttpHeaders& headers)
    {
        auto viewer = std::make_unique<HttpClient>(Port());
        viewer->Send(RequestText("GET", "/api/v1/events", headers));
        EXPECT_TRUE(viewer->ReceiveUntil("retry: 2000\n\n"));
        EXPECT_TRUE(viewer->Rest().startsWith("HTTP/1.1 200"));
        EXPECT_TRUE(viewer->Rest().contains("Content-Type: text/event-stream"));
        // Whoever is told of a change of a station has had his first look.
        LedgerStation station;
        station.Machine = QStringLiteral("watched-%1").arg(++m_viewers);
        station.Seen = QDateTime::currentMSecsSinceEpoch();
        EXPECT_TRUE(EventsUntil([&] {
            station.Layout += u'x';
            NoteStation(Database(), station);
            viewer->ReceiveSome();
            return viewer->Rest().contains("event: stations");
        }));
        return viewer;
    }

private:
    int m_viewers = 0;
};

TEST_F(ConsoleEvents, TellEveryViewerWhatCameAndWhatBecameOfIt)
{
    AddPrinted("Before");
    Start();
    const auto one = Viewer(Bearer());
    const auto other = Viewer(LogIn());
    LedgerEntry entry = PrintedEntry({QString::fromUtf8("Ada <b>\n")}, {QStringLiteral("1001")});
    entry.State = LedgerState::Received;
    const std::vector<LedgerCard> cards = std::exchange(entry.Cards, {});
    const qlonglong id = AddLedgerEntry(Database(), entry);
    for (const auto& viewer : {one.get(), other.get()}) {
        ASSERT_TRUE(viewer->ReceiveUntil("\"id\": " + QByteArray::number(id)));
        EXPECT_TRUE(viewer->ReceiveUntil("\"state\": \"received\""));
        EXPECT_TRUE(viewer->ReceiveUntil("Ada <b>\\u000a"));
        EXPECT_FALSE(viewer->Rest().contains("Before"));
    }
    Database().Change(QStringLiteral("UPDATE LedgerEntries SET State = 'failed' WHERE ID = ?"),
                      {id});
    EXPECT_TRUE(one->ReceiveUntil("\"state\": \"failed\""));
    EXPECT_TRUE(other->ReceiveUntil("\"state\": \"failed\""));
}

TEST_F(ConsoleEvents, TellWhatThisConsoleHasChangedItself)
{
    AddPrinted("Ada");
    Start();
    const auto viewer = Viewer(Bearer());
    EXPECT_EQ(Ask(Port(), "POST", "/api/v1/records/1/void", Bearer()).Status, 200);
    EXPECT_TRUE(viewer->ReceiveUntil("\"state\": \"void\""));
}

TEST_F(ConsoleEvents, TellOfAFirstRecordByWhichOneItIsPrintedAgain)
{
    AddPrinted("Ada");
    Start();
    const auto viewer = Viewer(Bearer());
    EXPECT_EQ(Ask(Port(), "POST", "/api/v1/records/1/reprint", Bearer()).Status, 201);
    // Both name the reprint.
    EXPECT_TRUE(viewer->ReceiveUntil("\"id\": 2, \"state\": \"received\""));
    EXPECT_TRUE(viewer->ReceiveUntil("\"reprinted_as\": 2"));
    EXPECT_TRUE(viewer->ReceiveUntil("\"id\": 1, \"state\": \"printed\""));
    EXPECT_TRUE(viewer->ReceiveUntil("\"reprinted_as\": 2"));
    // A reprint that fails is none.
    Database().Change(QStringLiteral("UPDATE LedgerEntries SET State = 'failed' WHERE ID = 2"), {});
    EXPECT_TRUE(viewer->ReceiveUntil("\"id\": 1, \"state\": \"printed\""));
    EXPECT_TRUE(viewer->ReceiveUntil("\"reprinted_as\": null"));
}

TEST_F(ConsoleEvents, OfAFloodTellTheNewestAndThatThereWereMore)
{
    Start();
    const auto viewer = Viewer(Bearer());
    Database().Begin();
    for (int i = 0; i < 150; ++i)
        AddPrinted("Flood");
    Database().Commit();
    ASSERT_TRUE(viewer->ReceiveUntil("event: more"));
    EXPECT_TRUE(viewer->Rest().contains("\"id\": 150"));
    EXPECT_FALSE(viewer->Rest().contains("\"id\": 20,"));
}

TEST_F(ConsoleEvents, ShowOnlyTheBeginningOfLongRecords)
{
    Start();
    const auto viewer = Viewer(Bearer());
    AddPrinted(QByteArray(3'000'000, 'x').constData());
    ASSERT_TRUE(viewer->ReceiveUntil("\"id\": 1"));
    ASSERT_TRUE(viewer->ReceiveUntil(": \n\n"));
    EXPECT_LT(viewer->Rest().size(), 20'000);
}

TEST_F(ConsoleEvents, EndForAViewerWhoMayNoLongerLook)
{
    Start();
    const HttpHeaders login = LogIn();
    const auto loggedIn = Viewer(login);
    const auto stays = Viewer(Bearer());
    EXPECT_EQ(Ask(Port(), "POST", "/logout", login).Status, 204);
    EXPECT_TRUE(loggedIn->WaitForEnd());
    AddPrinted("Ada");
    EXPECT_TRUE(stays->ReceiveUntil("Ada"));
}

TEST_F(ConsoleEvents, AHundredViewersWhoComeAndGoLeaveNothingBehind)
{
    Start();
    const auto round = [this] {
        std::vector<std::unique_ptr<HttpClient>> viewers;
        for (int i = 0; i < 100; ++i) {
            viewers.push_back(std::make_unique<HttpClient>(Port()));
            viewers.back()->Send(RequestText("GET", "/api/v1/events", Bearer()));
        }
        for (const auto& viewer : viewers)
            EXPECT_TRUE(viewer->ReceiveUntil("retry"));
        AddPrinted("Ada");
        for (const auto& viewer : viewers)
            EXPECT_TRUE(viewer->ReceiveUntil(": \n\n"));
    };
    round();
    const int before = Console->MemoryMiB();
    for (int rounds = 0; rounds < 5; ++rounds)
        round();
    EXPECT_LT(Console->MemoryMiB(), before + MemoryRoom(15));
    EXPECT_TRUE(EventsUntil([this] { return Console->OpenDescriptors() < 60; }));
    EXPECT_EQ(Get("/api/v1/records").Status, 200);
}

TEST_F(ConsoleEvents, HeadOfThemEndsAtOnce)
{
    Start();
    EXPECT_EQ(Ask(Port(), "HEAD", "/api/v1/events", Bearer()).Status, 200);
    EXPECT_EQ(Ask(Port(), "GET", "/api/v1/events").Status, 401);
}

} // namespace
} // namespace vantrel::test
