#include "base/Profile.h"
#include "ledger/LedgerStations.h"
#include "road/ConsoleProcess.h"
#include "road/LedgerFolder.h"
#include "road/StationProcess.h"
#include "station/session/Settings.h"
#include "support/Events.h"
#include "support/Host.h"
#include <QImage>
#include <QJsonArray>
#include <csignal>

// The console beside a running station.

namespace vantrel::test {
namespace {

class ConsoleStation : public ::testing::Test
{
protected:
    void SetUp() override
    {
        Station = std::make_unique<StationProcess>(Folder.Session.ProgramFolder);
        ASSERT_TRUE(Station->WaitUntilItListens(m_port));
        Console = std::make_unique<ConsoleProcess>(Folder.Session.ProgramFolder);
        QFile file(Folder.Session.PathInFolder(QStringLiteral("Console.token")));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        m_headers = {{"Authorization", "Bearer " + file.readAll().trimmed()},
                     {"Content-Type", "application/json"}};
    }
    HttpAnswer Get(const QByteArray& target)
    {
        return Ask(Console->Port(), "GET", target, m_headers);
    }
    HttpAnswer Post(const QByteArray& target, const QByteArray& body = {})
    {
        return Ask(Console->Port(), "POST", target, m_headers, body);
    }
    /// Waits until an entry is in that state. @return whether it came
    bool WaitUntil(int id, const char* state)
    {
        return EventsUntil([&] {
            return Get("/api/v1/records/" + QByteArray::number(id)).Json()[u"state"].toString() ==
                   QLatin1StringView(state);
        });
    }
    /// Has a host send a record, and waits for its card.
    void PrintFirst()
    {
        AskingHost host(m_port);
        ASSERT_EQ(host.Ask(QStringLiteral("A")), QStringLiteral("OK 1 1"));
    }

    LedgerFolder Folder;
    std::unique_ptr<StationProcess> Station;
    std::unique_ptr<ConsoleProcess> Console;

private:
    int m_port = Folder.WithCapture();
    HttpHeaders m_headers;
};

TEST_F(ConsoleStation, ARecordByHandBecomesACardLikeThatOfAHost)
{
    const QJsonArray layouts = Get("/api/v1/layouts").Json()[u"layouts"].toArray();
    ASSERT_EQ(layouts.size(), 1);
    const HttpAnswer sent =
        Post("/api/v1/records", "{\"layout\": \"" + layouts[0].toString().toUtf8() +
                                    "\", \"values\": [\"Hand\", \"7\"]}");
    ASSERT_EQ(sent.Status, 201) << sent.Body.toStdString();
    EXPECT_EQ(Folder.TextOfCard(1), QStringLiteral("Hand 7 1001"));
    EXPECT_TRUE(WaitUntil(1, "printed"));
}

TEST_F(ConsoleStation, AReprintComesWithTheNumberOfTheFirstPrint)
{
    PrintFirst();
    ASSERT_EQ(Post("/api/v1/records/1/reprint").Status, 201);
    EXPECT_EQ(Folder.TextOfCard(2), QStringLiteral("A 7 1001"));
    EXPECT_TRUE(WaitUntil(2, "printed"));
}

TEST_F(ConsoleStation, ACardIsShownAsItWasPrinted)
{
    PrintFirst();
    const HttpAnswer card = Get("/api/v1/records/1/cards/1.png");
    ASSERT_EQ(card.Status, 200) << card.Body.toStdString();
    EXPECT_EQ(card.Header("content-type"), "image/png");
    const QImage picture = QImage::fromData(card.Body, "PNG");
    // The card lies upright, 2.125 by 3.375 inches.
    EXPECT_EQ(picture.size(), QSize(408, 648));
    QRgb darkest = qRgb(255, 255, 255);
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            darkest = std::min(darkest, picture.pixel(x, y));
    EXPECT_LT(qGray(darkest), 60);
    EXPECT_EQ(Get("/api/v1/records/1/cards/1.png").Body, card.Body);
    EXPECT_EQ(Get("/api/v1/records/1/cards/2.png").Status, 404);
    EXPECT_EQ(Get("/api/v1/records/2/cards/1.png").Status, 404);
}

TEST_F(ConsoleStation, TheRecordIsShownWithWhatFramingMadeOfIt)
{
    PrintFirst();
    const QJsonArray parts = Get("/api/v1/records/1/parts").Json()[u"parts"].toArray();
    QStringList told;
    for (const auto& part : parts)
        told += QString(part[u"part"].toString() + u' ' + part[u"text"].toString());
    EXPECT_EQ(told.first(), QStringLiteral("start <"));
    EXPECT_TRUE(told.contains(QStringLiteral("value A")));
    EXPECT_EQ(told.last(), QStringLiteral("end >"));
}

TEST_F(ConsoleStation, AStationThatRunsIsWellAndOneThatHasEndedIsMissedWhereItShouldRun)
{
    EXPECT_TRUE(EventsUntil([this] { return Get("/healthz").Status == 200; }));
    const auto stations = [this] { return Get("/api/v1/stations").Json()[u"stations"].toArray(); };
    ASSERT_EQ(stations().size(), 1);
    EXPECT_EQ(stations()[0][u"state"].toString(), QStringLiteral("alive"));
    EXPECT_FALSE(stations()[0][u"layout"].toString().isEmpty());
    EXPECT_FALSE(stations()[0][u"printer"].toString().isEmpty());
    Station->SendSignal(SIGTERM);
    ASSERT_EQ(Station->ExitCode(), 0);
    // It has said so itself, and nobody wants it to run.
    EXPECT_EQ(stations()[0][u"state"].toString(), QStringLiteral("ended"));
    EXPECT_EQ(Get("/healthz").Status, 200);
    ASSERT_TRUE(WriteProfileValue(SessionStatusPath(Folder.Session.ProgramFolder),
                                  QStringLiteral("Session 1"), QStringLiteral("Active"),
                                  QStringLiteral("True")));
    EXPECT_EQ(Get("/healthz").Status, 503);
}

} // namespace
} // namespace vantrel::test
