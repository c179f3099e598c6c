#include "ledger/LedgerStations.h"
#include "road/ConsoleProcess.h"
#include <QDateTime>
#include <QSysInfo>

// The figures for programs that watch, by the rules of their format.

namespace vantrel::test {
namespace {

class ConsoleMetrics : public ConsoleTest
{
protected:
    /// The figures as the checker has read them, each as "name|label=value,...|number".
    QStringList Figures()
    {
        const HttpAnswer answer = Get("/metrics");
        EXPECT_EQ(answer.Status, 200);
        EXPECT_EQ(answer.Header("content-type"),
                  "application/openmetrics-text; version=1.0.0; charset=utf-8");
        QProcess checker;
        checker.start(QStringLiteral("/usr/bin/python3"), {QStringLiteral(VANTREL_METRICS_CHECK)});
        checker.write(answer.Body);
        checker.closeWriteChannel();
        EXPECT_TRUE(checker.waitForFinished());
        EXPECT_EQ(checker.exitCode(), 0)
            << checker.readAllStandardError().constData() << answer.Body.toStdString();
        return QString::fromUtf8(checker.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
    }
    void ExpectFigure(const char* figure)
    {
        const QStringList figures = Figures();
        EXPECT_TRUE(figures.contains(QString::fromUtf8(figure)))
            << figure << '\n'
            << figures.join(u'\n').toStdString();
    }
    /// A record whose card took so long.
    LedgerEntry Printed(const char* layout, qint64 milliseconds)
    {
        LedgerEntry entry = PrintedEntry({QStringLiteral("Ada")});
        entry.Layout = entry.Cards.at(0).Layout = QString::fromUtf8(layout);
        entry.Cards.at(0).Changed = entry.Received + milliseconds;
        return entry;
    }
    /// A record that waits in a pool. @return its number
    qlonglong LeaveToPool(const char* pool)
    {
        LedgerEntry entry = Printed("Badge", 20);
        entry.State = LedgerState::Received;
        entry.Session = NoSession;
        entry.Pool = QString::fromUtf8(pool);
        entry.Cards.clear();
        return AddLedgerEntry(Database(), entry);
    }
    void Claim(qlonglong id, int session)
    {
        Database().Change(QStringLiteral("UPDATE LedgerEntries SET SessionNumber = ? WHERE ID = ?"),
                          {session, id});
    }
    /// What a station writes whose card has this outcome.
    void EndCard(qlonglong id, LedgerState state, const char* reason = "")
    {
        Database().Change(
            QStringLiteral("INSERT INTO LedgerCards (EntryID, State, Page, Copy, Changed, Layout, "
                           "Printer, Numbers, PageHash, File, Reason) "
                           "VALUES (?, ?, 1, 1, 1, 'Badge', 'P', '[]', '', 'F', ?)"),
            {id, NameOf(state), QString::fromUtf8(reason)});
        Database().Change(QStringLiteral("UPDATE LedgerEntries SET State = ? WHERE ID = ?"),
                          {NameOf(state), id});
    }
    LedgerEntry Failed(const char* reason)
    {
        LedgerEntry entry = Printed("Badge", 0);
        entry.State = entry.Cards.at(0).State = LedgerState::Failed;
        entry.Reason = entry.Cards.at(0).Reason = QString::fromUtf8(reason);
        return entry;
    }
};

TEST_F(ConsoleMetrics, WantTheToken)
{
    Start();
    EXPECT_EQ(Ask(Port(), "GET", "/metrics").Status, 401);
    EXPECT_EQ(Get("/metrics").Status, 200);
}

TEST_F(ConsoleMetrics, OfAnEmptyLedgerKeepTheRules)
{
    Start();
    ExpectFigure("vantrel_queue_records||0");
    ExpectFigure("vantrel_card_seconds_count||0");
}

TEST_F(ConsoleMetrics, CountRecordsCardsFailuresAndTimesSinceTheConsoleRuns)
{
    AddLedgerEntry(Database(), Printed("Before", 10));
    Start();
    ExpectFigure("vantrel_card_seconds_count||0");
    AddLedgerEntry(Database(), Printed("Badge", 20));
    AddLedgerEntry(Database(), Printed("Badge", 200));
    AddLedgerEntry(Database(), Printed("Pass", 90'000));
    AddLedgerEntry(Database(), Failed("The printer is gone."));
    LedgerEntry other = Printed("Badge", 20);
    other.Session = 2;
    AddLedgerEntry(Database(), other);
    ExpectFigure("vantrel_records_total|station=1|4");
    ExpectFigure("vantrel_records_total|station=2|1");
    ExpectFigure("vantrel_cards_total|layout=Badge,station=1|2");
    ExpectFigure("vantrel_cards_total|layout=Badge,station=2|1");
    ExpectFigure("vantrel_cards_total|layout=Pass,station=1|1");
    ExpectFigure(
        "vantrel_card_failures_total|layout=Badge,reason=The printer is gone.,station=1|1");
    ExpectFigure("vantrel_card_seconds_bucket|le=0.01|0");
    ExpectFigure("vantrel_card_seconds_bucket|le=0.025|2");
    ExpectFigure("vantrel_card_seconds_bucket|le=0.25|3");
    ExpectFigure("vantrel_card_seconds_bucket|le=60.0|3");
    ExpectFigure("vantrel_card_seconds_bucket|le=+Inf|4");
    ExpectFigure("vantrel_card_seconds_sum||90.24");
}

TEST_F(ConsoleMetrics, CountEachEndOfACardOnceHoweverOftenTheyAreAsked)
{
    Start();
    LedgerEntry entry = Printed("Badge", 20);
    entry.State = LedgerState::Received;
    const std::vector<LedgerCard> cards = std::exchange(entry.Cards, {});
    AddLedgerEntry(Database(), entry);
    ExpectFigure("vantrel_queue_records||1");
    Database().Change(QStringLiteral("INSERT INTO LedgerCards (EntryID, State, Page, Copy, Job, "
                                     "Changed, Layout, Printer, Numbers, PageHash, File, Reason) "
                                     "VALUES (1, 'printed', 1, 1, 5, 1, 'Badge', 'P', '[]', '', "
                                     "'', '')"));
    Database().Change(QStringLiteral("UPDATE LedgerEntries SET State = 'printed'"));
    ExpectFigure("vantrel_queue_records||0");
    ExpectFigure("vantrel_cards_total|layout=Badge,station=1|1");
    // The print server tells later how the job has ended.
    Database().Change(QStringLiteral("UPDATE LedgerCards SET State = 'failed', Reason = 'Jam'"));
    ExpectFigure("vantrel_cards_total|layout=Badge,station=1|1");
    ExpectFigure("vantrel_card_failures_total|layout=Badge,reason=Jam,station=1|1");
    ExpectFigure("vantrel_card_failures_total|layout=Badge,reason=Jam,station=1|1");
    // Counts never fall, also where entries are removed.
    Database().Change(QStringLiteral("DELETE FROM LedgerEntries"));
    ExpectFigure("vantrel_cards_total|layout=Badge,station=1|1");
}

// Of two stations that write at once, the one with the lower number may commit later.
TEST_F(ConsoleMetrics, CountARecordThatIsSeenAfterOneWithAHigherNumber)
{
    const auto addNumbered = [&](qlonglong number) {
        const qlonglong id = AddLedgerEntry(Database(), Printed("Badge", 20));
        Database().Change(QStringLiteral("UPDATE LedgerCards SET EntryID = ? WHERE EntryID = ?"),
                          {number, id});
        Database().Change(QStringLiteral("UPDATE LedgerEntries SET ID = ? WHERE ID = ?"),
                          {number, id});
    };
    addNumbered(100);
    Start();
    ExpectFigure("vantrel_card_seconds_count||0");
    addNumbered(103);
    ExpectFigure("vantrel_records_total|station=1|1");
    addNumbered(101);
    ExpectFigure("vantrel_records_total|station=1|2");
    ExpectFigure("vantrel_cards_total|layout=Badge,station=1|2");
    addNumbered(50'000);
    addNumbered(102);
    addNumbered(49'999);
    ExpectFigure("vantrel_records_total|station=1|5");
}

TEST_F(ConsoleMetrics, CountARecordOfAPoolForThePoolAndItsCardForTheStationThatPrintedIt)
{
    LeaveToPool("badges");
    Start();
    const qlonglong first = LeaveToPool("badges");
    const qlonglong second = LeaveToPool("badges");
    const qlonglong other = LeaveToPool("passes");
    // It was claimed before anybody saw it wait.
    Claim(other, 3);
    ExpectFigure("vantrel_pool_records_total|pool=badges|2");
    ExpectFigure("vantrel_pool_records_total|pool=passes|1");
    ExpectFigure("vantrel_pool_queue_records|pool=badges|3");
    ExpectFigure("vantrel_pool_queue_records|pool=passes|0");
    ExpectFigure("vantrel_queue_records||4");

    Claim(first, 2);
    EndCard(first, LedgerState::Printed);
    Claim(second, 3);
    EndCard(second, LedgerState::Failed, "Jam");
    ExpectFigure("vantrel_pool_records_total|pool=badges|2");
    ExpectFigure("vantrel_pool_queue_records|pool=badges|1");
    ExpectFigure("vantrel_cards_total|layout=Badge,station=2|1");
    ExpectFigure("vantrel_card_failures_total|layout=Badge,reason=Jam,station=3|1");
    const QStringList figures = Figures();
    EXPECT_EQ(figures.filter(QStringLiteral("station=0")), QStringList());
    EXPECT_EQ(figures.filter(QStringLiteral("vantrel_records_total")), QStringList());
}

TEST_F(ConsoleMetrics, CountTheCardOfARecordThatAnotherStationClaimedAnewForThatOne)
{
    Start();
    const qlonglong id = LeaveToPool("badges");
    Claim(id, 2);
    ExpectFigure("vantrel_pool_queue_records|pool=badges|0");
    // The station has ended and lets go.
    Claim(id, NoSession);
    ExpectFigure("vantrel_pool_queue_records|pool=badges|1");
    Claim(id, 3);
    EndCard(id, LedgerState::Printed);
    ExpectFigure("vantrel_cards_total|layout=Badge,station=3|1");
    ExpectFigure("vantrel_pool_records_total|pool=badges|1");
    ExpectFigure("vantrel_pool_queue_records|pool=badges|0");
}

TEST_F(ConsoleMetrics, TellNothingOfPoolsWhereThereAreNone)
{
    Start();
    AddLedgerEntry(Database(), Printed("Badge", 20));
    ExpectFigure("vantrel_records_total|station=1|1");
    EXPECT_FALSE(Get("/metrics").Body.contains("pool"));
}

TEST_F(ConsoleMetrics, OfALedgerFromBeforeThereWerePoolsCountRecords)
{
    Database().Execute(QStringLiteral("DROP TABLE LedgerPools"));
    Start();
    AddLedgerEntry(Database(), Printed("Badge", 20));
    ExpectFigure("vantrel_records_total|station=1|1");
    // A station that is started makes the table.
    MakeLedgerTables(Database());
    LeaveToPool("badges");
    ExpectFigure("vantrel_pool_records_total|pool=badges|1");
}

TEST_F(ConsoleMetrics, OfManyPoolsTellTheFirstApart)
{
    Start();
    constexpr int pools = 300;
    for (int i = 0; i < pools; ++i)
        LeaveToPool(QByteArray::number(i).constData());
    const QStringList figures = Figures();
    EXPECT_LT(figures.size(), pools);
    const QStringList other = figures.filter(QStringLiteral("pool=other"));
    EXPECT_EQ(other.size(), 2);
    int counted = 0;
    for (const QString& figure : figures.filter(QStringLiteral("vantrel_pool_records_total")))
        counted += figure.section(u'|', 2).toInt();
    EXPECT_EQ(counted, pools);
}

TEST_F(ConsoleMetrics, TellTextsOfAnyKindByTheRules)
{
    Start();
    AddLedgerEntry(Database(), Printed("Back\\slash \"quoted\"\nline é", 20));
    ExpectFigure("vantrel_cards_total|layout=Back\\slash \"quoted\"\\nline é,station=1|1");
}

TEST_F(ConsoleMetrics, OfManyLayoutsAndReasonsTellTheFirstApart)
{
    Start();
    Database().Begin();
    for (int i = 0; i < 300; ++i) {
        AddLedgerEntry(Database(), Printed(QByteArray::number(i).constData(), 20));
        const QByteArray number = QByteArray::number(i);
        AddLedgerEntry(Database(), Failed(number.rightJustified(5000, 'x').constData()));
        AddLedgerEntry(Database(), Failed(QByteArray("Reason " + number).constData()));
    }
    Database().Commit();
    const QStringList figures = Figures();
    EXPECT_LT(figures.size(), 400);
    EXPECT_GT(figures.filter(QStringLiteral("layout=other")).size(), 0);
    EXPECT_GT(figures.filter(QStringLiteral("reason=other")).size(), 0);
}

TEST_F(ConsoleMetrics, TellWhichStationsRun)
{
    LedgerStation station;
    station.Machine = QStringLiteral("there");
    station.Seen = QDateTime::currentMSecsSinceEpoch();
    NoteStation(Database(), station);
    station.Session = 2;
    station.Ended = true;
    NoteStation(Database(), station);
    Start();
    ExpectFigure("vantrel_station_up|machine=there,station=1|1");
    ExpectFigure("vantrel_station_up|machine=there,station=2|0");
    ExpectFigure("vantrel_station_wanted|machine=there,station=1|1");
    ExpectFigure("vantrel_station_wanted|machine=there,station=2|0");
}

} // namespace
} // namespace vantrel::test
