#include "base/Profile.h"
#include "ledger/LedgerStations.h"
#include "road/AdminRun.h"
#include "road/ConsoleProcess.h"
#include "station/ledger/StationHeartbeat.h"
#include "support/Memory.h"
#include <QDateTime>
#include <QJsonArray>

// What the console tells of records and stations.

namespace vantrel::test {
namespace {

class ConsoleRecords : public ConsoleTest
{
protected:
    using Ids = std::vector<int>;
    Ids Listed(const QByteArray& query = {})
    {
        Ids ids;
        const HttpAnswer answer = Get("/api/v1/records" + query);
        EXPECT_EQ(answer.Status, 200) << answer.Body.toStdString();
        const QJsonArray records = answer.Json()[u"records"].toArray();
        for (const auto& record : records)
            ids.push_back(record[u"id"].toInt());
        return ids;
    }
};

TEST_F(ConsoleRecords, AreTheSameObjectsAsThoseOfTheCommand)
{
    Start();
    EXPECT_EQ(Get("/api/v1/records").Body, "{\"records\": []}\n");
    LedgerEntry entry =
        PrintedEntry({QString::fromUtf8("Ada \"Löve\" <b>"), QString()}, {QStringLiteral("1001")});
    entry.Raw = QByteArray("<Ada>\x00\xFF", 7);
    AddLedgerEntry(Database(), entry);
    AddPrinted("Grace");
    const auto command = [&](const QStringList& words) {
        return RunAdmin(QStringList{QStringLiteral("ledger")} + words +
                        QStringList{QStringLiteral("--json")})
            .Out.toUtf8();
    };
    EXPECT_EQ(
        Get("/api/v1/records").Body,
        command({QStringLiteral("list"), Folder.path()}).replace("{\"entries\"", "{\"records\""));
    const HttpAnswer one = Get("/api/v1/records/1");
    EXPECT_EQ(one.Body, command({QStringLiteral("show"), Folder.path(), QStringLiteral("1")}));
    EXPECT_EQ(one.Header("content-type"), "application/json");
    EXPECT_EQ(Get("/api/v1/records/3").Status, 404);
    EXPECT_EQ(Get("/api/v1/records/3").Json()[u"error"].toString(),
              QStringLiteral("The ledger has no entry 3."));
}

TEST_F(ConsoleRecords, AreChosenByTheQuery)
{
    AddPrinted("Ada");
    LedgerEntry failed = PrintedEntry({QStringLiteral("100% Grace")});
    failed.State = LedgerState::Failed;
    failed.Received = QDateTime::fromString(QStringLiteral("2026-01-02T03:04:05Z"), Qt::ISODate)
                          .toMSecsSinceEpoch();
    AddLedgerEntry(Database(), failed);
    AddPrinted("Ada Lovelace");
    Start();
    EXPECT_EQ(Listed(), Ids({3, 2, 1}));
    EXPECT_EQ(Listed("?state=failed"), Ids({2}));
    EXPECT_EQ(Listed("?text=ada"), Ids({3, 1}));
    EXPECT_EQ(Listed("?text=100%25+g"), Ids({2}));
    EXPECT_EQ(Listed("?before=3"), Ids({2, 1}));
    EXPECT_EQ(Listed("?text=ada&before=3&state=&limit="), Ids({1}));
    EXPECT_EQ(Listed("?limit=1"), Ids({3}));
    EXPECT_EQ(Listed("?since=2026-01-02T03:04:05Z&until=2026-01-02T03:04:06Z"), Ids({2}));
    EXPECT_EQ(Listed("?until=2026-01-02T03:04:05Z"), Ids());
    for (const char* query : {"?state=gone", "?before=x", "?limit=-1", "?since=yesterday",
                              "?before=99999999999999999999"})
        EXPECT_EQ(Get("/api/v1/records" + QByteArray(query)).Status, 400) << query;
    EXPECT_EQ(Get("/api/v1/records?text=" + QByteArray(8193, 'x')).Status, 400);
}

TEST_F(ConsoleRecords, AListHasAHundredAndAThousandAtMost)
{
    Database().Begin();
    for (int i = 0; i < 1100; ++i)
        AddPrinted("Ada");
    Database().Commit();
    Start();
    EXPECT_EQ(Listed().size(), 100U);
    EXPECT_EQ(Listed("?limit=5000").size(), 1000U);
}

TEST_F(ConsoleRecords, OfAnyLengthAreListedAndTheMemoryComesBack)
{
    constexpr int longRecords = 30;
    for (int i = 0; i < longRecords; ++i)
        AddPrinted(QByteArray(1'000'000, 'x').constData());
    Start();
    const Ids first = Listed();
    EXPECT_LT(first.size(), std::size_t{longRecords});
    EXPECT_GE(first.size(), 4U);
    const QByteArray next = "?before=" + QByteArray::number(first.back());
    EXPECT_EQ(Listed(next).front(), first.back() - 1);
    const int before = Console->MemoryMiB();
    for (int turn = 0; turn < 20; ++turn)
        Listed();
    EXPECT_LT(Console->MemoryMiB(), before + MemoryRoom(40));
}

TEST_F(ConsoleRecords, ThatNeedAPersonAreToldUntilTheyAreSettled)
{
    const auto add = [this](LedgerState state, std::optional<qlonglong> reprintOf = {},
                            qint64 age = 0) {
        LedgerEntry entry = PrintedEntry({QStringLiteral("Ada")});
        entry.State = state;
        entry.ReprintOf = reprintOf;
        entry.Received = QDateTime::currentMSecsSinceEpoch() - age;
        AddLedgerEntry(Database(), entry);
    };
    constexpr qint64 eightDays = 8LL * 24 * 60 * 60 * 1000;
    add(LedgerState::Failed, {}, eightDays);
    add(LedgerState::Printed);
    add(LedgerState::Doubtful);
    add(LedgerState::Failed);
    Start();
    const auto unsettled = [this] {
        Ids ids;
        const QJsonArray records = Get("/api/v1/unsettled").Json()[u"records"].toArray();
        for (const auto& record : records)
            ids.push_back(record[u"id"].toInt());
        return ids;
    };
    EXPECT_EQ(unsettled(), Ids({4, 3}));
    // The reprint of one has failed, too, and now that is to be printed again.
    add(LedgerState::Failed, 4);
    EXPECT_EQ(unsettled(), Ids({5, 3}));
    add(LedgerState::Received, 4);
    EXPECT_EQ(unsettled(), Ids({3}));
    // A brief list tells by which record one was printed again without failing.
    const QJsonArray brief = Get("/api/v1/records?brief=1").Json()[u"records"].toArray();
    ASSERT_EQ(brief.size(), 6);
    EXPECT_EQ(brief[2][u"id"].toInt(), 4);
    EXPECT_EQ(brief[2][u"reprinted_as"].toInt(), 6);
    EXPECT_TRUE(brief[3][u"reprinted_as"].isNull());
    EXPECT_EQ(Ask(Port(), "POST", "/api/v1/records/3/void", Bearer()).Status, 200);
    EXPECT_EQ(unsettled(), Ids());
}

TEST_F(ConsoleRecords, OneOfAnyLengthIsShownWholeOrAsMuchOfItAsIsRead)
{
    LedgerEntry entry = PrintedEntry(QStringList(2000, QString(5000, QLatin1Char('x'))));
    AddLedgerEntry(Database(), entry);
    Start();
    EXPECT_EQ(Get("/api/v1/records/1").Json()[u"values"].toArray().size(), 2000);
    const QJsonObject brief = Get("/api/v1/records/1?brief=1").Json();
    EXPECT_EQ(brief[u"values"].toArray().size(), 500);
    EXPECT_EQ(brief[u"values"].toArray()[0].toString().size(), 1000);
    EXPECT_EQ(brief[u"value_count"].toInt(), 2000);
    EXPECT_FALSE(brief.contains(u"raw"));
    EXPECT_TRUE(brief[u"reprinted_as"].isNull());
    LedgerEntry reprint = PrintedEntry({QStringLiteral("Ada")});
    reprint.ReprintOf = 1;
    AddLedgerEntry(Database(), reprint);
    EXPECT_EQ(Get("/api/v1/records/1?brief=1").Json()[u"reprinted_as"].toInt(), 2);
}

TEST_F(ConsoleRecords, HeadTellsTheLengthAlone)
{
    AddPrinted("Ada");
    Start();
    const HttpAnswer head = Ask(Port(), "HEAD", "/api/v1/records/1", Bearer());
    EXPECT_EQ(head.Status, 200);
    EXPECT_EQ(head.Body, "");
    EXPECT_EQ(head.Header("content-length").toLongLong(), Get("/api/v1/records/1").Body.size());
}

TEST_F(ConsoleRecords, HealthIsThatEveryStationThatShouldRunDoes)
{
    Start();
    // A fresh folder wants session 1.
    EXPECT_EQ(Get("/healthz").Status, 503);
    EXPECT_EQ(Get("/healthz").Body, "session 1 does not run\n");
    LedgerStation station;
    station.Machine = MachineName(Folder.path());
    station.Started = station.Seen = QDateTime::currentMSecsSinceEpoch();
    station.Layout = QStringLiteral("Badge");
    NoteStation(Database(), station);
    EXPECT_EQ(Get("/healthz").Status, 200);
    EXPECT_EQ(Get("/healthz").Body, "ok\n");
    const QJsonArray stations = Get("/api/v1/stations").Json()[u"stations"].toArray();
    ASSERT_EQ(stations.size(), 1);
    EXPECT_EQ(stations[0][u"session"].toInt(), 1);
    EXPECT_EQ(stations[0][u"state"].toString(), QStringLiteral("alive"));
    EXPECT_EQ(stations[0][u"layout"].toString(), QStringLiteral("Badge"));
    station.Seen -= 60'000;
    NoteStation(Database(), station);
    EXPECT_EQ(Get("/healthz").Status, 503);
    ASSERT_TRUE(WriteProfileValue(Folder.filePath(QStringLiteral("SessionStatus.ini")),
                                  QStringLiteral("Session 1"), QStringLiteral("Active"),
                                  QStringLiteral("False")));
    EXPECT_EQ(Get("/healthz").Status, 200);
}

} // namespace
} // namespace vantrel::test
