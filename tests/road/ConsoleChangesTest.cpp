#include "base/Profile.h"
#include "ledger/LedgerReading.h"
#include "ledger/LedgerStations.h"
#include "road/ConsoleProcess.h"
#include <QDateTime>
#include <QJsonArray>
#include <QSysInfo>

// What is asked of the console: records by hand, reprints, voids.

namespace vantrel::test {
namespace {

class ConsoleChanges : public ConsoleTest
{
protected:
    void SetUp() override
    {
        Database().Change(QStringLiteral("INSERT INTO Controls (LayoutName, Page, Control_Type) "
                                         "VALUES ('Badge', 1, 'Label')"));
        Start();
    }
    HttpAnswer Post(const QByteArray& target, const QByteArray& body = {}, HttpHeaders headers = {})
    {
        if (headers.empty())
            headers = Bearer();
        if (!headers.contains("Content-Type"))
            headers["Content-Type"] = "application/json";
        return Ask(Port(), "POST", target, headers, body);
    }
    LedgerEntry Entry(qlonglong id)
    {
        const auto entry = FindEntry(Database(), id);
        EXPECT_TRUE(entry) << id;
        return entry.value_or(LedgerEntry());
    }
};

TEST_F(ConsoleChanges, ARecordByHandWaitsInTheLedgerForAStation)
{
    const HttpAnswer answer =
        Post("/api/v1/records", R"({"layout": "Badge", "values": ["Ada", "", "<b>\u00e9"]})");
    ASSERT_EQ(answer.Status, 201) << answer.Body.toStdString();
    EXPECT_EQ(answer.Json()[u"id"].toInt(), 1);
    EXPECT_EQ(answer.Json()[u"session"].toInt(), 1);
    EXPECT_EQ(answer.Header("location"), "/api/v1/records/1");
    const LedgerEntry entry = Entry(1);
    EXPECT_EQ(entry.State, LedgerState::Received);
    EXPECT_EQ(entry.Layout, QStringLiteral("Badge"));
    EXPECT_EQ(entry.Source, QStringLiteral("console"));
    EXPECT_EQ(entry.Values,
              QStringList({QStringLiteral("Ada"), QString(), QString::fromUtf8("<b>é")}));
    EXPECT_EQ(
        EntryNumbers(
            Database(),
            {.State = {}, .Text = QStringLiteral("ADA"), .Since = {}, .Until = {}, .Before = {}})
            .size(),
        1U);
}

TEST_F(ConsoleChanges, ARecordByHandGoesToTheFirstSessionThatRuns)
{
    LedgerStation station;
    station.Machine = QSysInfo::machineHostName();
    station.Session = 7;
    station.Seen = QDateTime::currentMSecsSinceEpoch();
    NoteStation(Database(), station);
    const QByteArray body = R"({"layout": "Badge", "values": []})";
    EXPECT_EQ(Post("/api/v1/records", body).Json()[u"session"].toInt(), 7);
    EXPECT_EQ(Entry(1).Session, 7);
    EXPECT_EQ(Post("/api/v1/records", R"({"layout": "Badge", "values": [], "session": 3})")
                  .Json()[u"session"]
                  .toInt(),
              3);
}

TEST_F(ConsoleChanges, ARecordThatIsNoneIsRefusedWithItsReason)
{
    for (const char* body :
         {"", "[]", "{", "{}", R"({"layout": "", "values": []})", R"({"layout": "Badge"})",
          R"({"layout": "Badge", "values": "Ada"})", R"({"layout": "Badge", "values": [1]})",
          R"({"layout": "Badge", "values": [["Ada"]]})", R"({"layout": 1, "values": []})",
          R"({"layout": "Badge", "values": [], "session": 256})",
          R"({"layout": "Badge", "values": [], "session": "1"})",
          R"({"layout": "Gone", "values": []})"}) {
        const HttpAnswer answer = Post("/api/v1/records", body);
        EXPECT_EQ(answer.Status, 400) << body;
        EXPECT_FALSE(answer.Json()[u"error"].toString().isEmpty()) << body;
    }
    HttpHeaders text = Bearer();
    text["Content-Type"] = "text/plain";
    EXPECT_EQ(Post("/api/v1/records", R"({"layout": "Badge", "values": []})", text).Status, 415);
    EXPECT_TRUE(EntryNumbers(Database(), {}).empty());
}

TEST_F(ConsoleChanges, AStationThatKeepsNoValuesCannotPrintARecordByHand)
{
    ASSERT_TRUE(WriteProfileValue(Folder.filePath(QStringLiteral("Vantrel 6.ini")),
                                  QStringLiteral("Station"), QStringLiteral("LedgerValues"),
                                  QStringLiteral("False")));
    EXPECT_EQ(Post("/api/v1/records", R"({"layout": "Badge", "values": []})").Status, 409);
}

TEST_F(ConsoleChanges, AReprintIsAnEntryOfItsOwnAndASecondOneMustBeMeant)
{
    AddPrinted("Ada");
    const HttpAnswer first = Post("/api/v1/records/1/reprint");
    ASSERT_EQ(first.Status, 201) << first.Body.toStdString();
    EXPECT_EQ(first.Json()[u"id"].toInt(), 2);
    EXPECT_EQ(Entry(2).ReprintOf, 1);
    const HttpAnswer second = Post("/api/v1/records/1/reprint", "{}");
    EXPECT_EQ(second.Status, 409);
    EXPECT_EQ(second.Json()[u"reprinted_as"].toInt(), 2);
    // Of a reprint the first entry is told.
    EXPECT_EQ(Post("/api/v1/records/2/reprint").Body, second.Body);
    EXPECT_EQ(Post("/api/v1/records/1/reprint", R"({"again": true})").Json()[u"id"].toInt(), 3);
    EXPECT_EQ(Post("/api/v1/records/9/reprint").Status, 404);
    EXPECT_EQ(Post("/api/v1/records/1/reprint", "{").Status, 400);
    // What waits cannot be printed again.
    const HttpAnswer waiting = Post("/api/v1/records/2/reprint", R"({"again": true})");
    EXPECT_EQ(waiting.Status, 409);
    EXPECT_EQ(waiting.Json()[u"error"].toString(),
              QStringLiteral("Entry 2 still waits to be printed."));
}

TEST_F(ConsoleChanges, AVoidEntryStaysVoid)
{
    AddPrinted("Ada");
    EXPECT_EQ(Post("/api/v1/records/1/void").Status, 200);
    EXPECT_EQ(Entry(1).State, LedgerState::Void);
    EXPECT_EQ(Entry(1).Cards.at(0).State, LedgerState::Void);
    EXPECT_EQ(Post("/api/v1/records/2/void").Status, 404);
    LedgerEntry printing = PrintedEntry({QStringLiteral("Ada")});
    printing.State = LedgerState::Printing;
    AddLedgerEntry(Database(), printing);
    EXPECT_EQ(Post("/api/v1/records/2/void").Status, 409);
}

TEST_F(ConsoleChanges, WithALoginAPageOfTheConsoleMustAsk)
{
    AddPrinted("Ada");
    const HttpHeaders page = LogIn();
    const HttpHeaders cookie{{"Cookie", page.at("Cookie")}};
    const QByteArray own = "http://127.0.0.1";
    const auto with = [](HttpHeaders headers, const char* name, const QByteArray& value) {
        headers[name] = value;
        return headers;
    };
    // What a page of somebody else can make a browser send.
    for (const HttpHeaders& forged :
         {cookie, with(cookie, "X-Forgery-Token", QByteArray(64, '0')),
          with(cookie, "Origin", "http://evil.example"),
          with(page, "Origin", "http://evil.example"), with(page, "Origin", "null"),
          with(page, "Sec-Fetch-Site", "cross-site")}) {
        for (const char* target :
             {"/api/v1/records", "/api/v1/records/1/reprint", "/api/v1/records/1/void"})
            EXPECT_EQ(Post(target, {}, forged).Status, 403) << target;
    }
    EXPECT_EQ(Entry(1).State, LedgerState::Printed);
    EXPECT_EQ(EntryNumbers(Database(), {}).size(), 1U);
    // The token of another login is none of this one.
    HttpHeaders mixed = page;
    mixed["X-Forgery-Token"] = LogIn().at("X-Forgery-Token");
    EXPECT_EQ(Post("/api/v1/records/1/void", {}, mixed).Status, 403);
    EXPECT_EQ(Post("/api/v1/records/1/void", {}, with(page, "Origin", own)).Status, 200);
    EXPECT_EQ(Entry(1).State, LedgerState::Void);
}

TEST_F(ConsoleChanges, CountsAndLayoutsAreTold)
{
    AddPrinted("Ada");
    const QJsonArray counts = Get("/api/v1/counts").Json()[u"counts"].toArray();
    ASSERT_EQ(counts.size(), 1);
    EXPECT_EQ(counts[0][u"issued"].toInt(), 1);
    EXPECT_EQ(Get("/api/v1/counts?since=2030-01-01").Body, "{\"counts\": []}\n");
    EXPECT_EQ(Get("/api/v1/layouts").Json()[u"layouts"].toArray(),
              QJsonArray({QStringLiteral("Badge")}));
}

} // namespace
} // namespace vantrel::test
