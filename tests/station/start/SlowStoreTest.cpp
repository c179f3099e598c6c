#include "base/Profile.h"
#include "ledger/LedgerTables.h"
#include "station/capture/Pipeline.h"
#include "station/layout/LoadLayout.h"
#include "station/ledger/StationLedger.h"
#include "station/start/EntryPoint.h"
#include "station/start/StoreWatch.h"
#include "store/StoreDatabase.h"
#include "store/StoreUpgrade.h"
#include "support/Events.h"
#include "support/Layouts.h"
#include "support/PrivatePostgres.h"
#include "support/SlowLine.h"
#include "support/WarningGuard.h"
#include <QCoreApplication>
#include <QTimer>
#include <algorithm>
#include <gtest/gtest.h>

// A station whose server is behind a slow line: its windows stand still for a second at most,
// however many questions a record has.

namespace vantrel::test {

namespace {

constexpr qint64 StepMs = 1000;
const QString Badge = QStringLiteral("Badge");

class SlowStore : public ::testing::Test
{
protected:
    SlowStore()
    {
        BringUpToDate(*OpenStoreDatabase(Address), LedgerTables());
        EXPECT_TRUE(WriteProfileValue(Session.PathInFolder(QStringLiteral("Vantrel 6.ini")),
                                      QStringLiteral("Store"), QStringLiteral("Database"),
                                      PrivatePostgres::Through(Address, Line.Port())));
        Session.Settings.Framing = {QStringLiteral("<"), QStringLiteral("+"), QStringLiteral(">")};
        Session.Options.Ledger = true;
        Session.Options.UniqueNumbers = true;
        Session.Options.AnswerHost = true;
        OpenLayoutDb(Session);
        BeginLayout(Session, Badge);
        AddField(Session, 1);
        AddNumber(Session, 1000);
        SavePage(Session);
        OpenLedger(Session);
        EXPECT_TRUE(LoadFirstPage(Session, Badge));
        for (const char* warning : {"is away", "The store is back.", "The ledger cannot be written",
                                    "The ledger can be written again"})
            AnnounceWarning(QString::fromLatin1(warning));
        WatchStore(Session);
    }
    ~SlowStore() override { PrivatePostgres::Shared().DropSchema(Address); }

    /// Lets a record come in an event of its own, and handles that in one step.
    /// @return how often the server was asked and could have answered meanwhile
    qint64 Arrive(const QString& value)
    {
        qint64 trips = -1;
        QTimer::singleShot(0, &Session.Face, [&] {
            const qint64 before = Line.Count().RoundTrips;
            ArrivalSource source;
            source.Answer = [this](const QString& line) { Answers.append(line); };
            TakeRecord(Session, u'<' + value + u'>', source);
            trips = Line.Count().RoundTrips - before;
        });
        EXPECT_TRUE(EventsUntil([&] { return trips >= 0; }));
        return trips;
    }
    /// Whether the last answer says that a card was printed.
    bool IsPrinted() const
    {
        return Answers.value(Answers.size() - 1).startsWith(QStringLiteral("OK "));
    }
    /// A machine that is busy with other things may need more than a second for a card.
    void ExpectACard()
    {
        const qsizetype before = CardsPrinted();
        ASSERT_TRUE(EventsUntil([&] {
            if (!Session.Road.IsBusy())
                Arrive(QStringLiteral("A"));
            return CardsPrinted() > before;
        }));
        EXPECT_EQ(CardsPrinted(), before + 1);
        EXPECT_TRUE(IsPrinted()) << Answers.last().toStdString();
    }
    qsizetype CardsPrinted() const
    {
        return Test.Printers.Only({QStringLiteral("Print(\"A")}).size();
    }

    QString Address = PrivatePostgres::Shared().NewSchema();
    SlowLine Line{PrivatePostgres::Shared().Socket()};
    TestSession Test;
    vantrel::Session& Session = Test.Session;
    QStringList Answers;
};

} // namespace

TEST_F(SlowStore, HoldsTheWindowsUpForOneStepsTimeAtMost)
{
    ExpectACard();
    for (const int delayMs : {200, 400, 2000}) {
        Line.SetDelay(delayMs);
        constexpr int records = 5;
        for (int i = 1; i <= records; ++i) {
            const QString value = QStringLiteral("A%1.%2").arg(delayMs).arg(i);
            // One more may be asked in vain, and one of the step before be counted late.
            EXPECT_LE(Arrive(value), StepMs / delayMs + 2) << value.toStdString();
        }
        EXPECT_EQ(Answers.size(), CardsPrinted() + Answers.filter(QStringLiteral("ERR ")).size());
    }
    ASSERT_TRUE(EventsUntil([&] {
        return Session.Face.StatusPanel(LastArrivalPanel).Text ==
               QStringLiteral("The store is away");
    }));
    EXPECT_TRUE(Session.Face.Caption().endsWith(QStringLiteral("(the store is away)")));

    Line.SetDelay(0);
    ASSERT_TRUE(EventsUntil([&] {
        return !Session.Road.IsBusy() && !Session.Face.Caption().contains(QStringLiteral("away"));
    }));
    ExpectACard();
}

TEST_F(SlowStore, OfTenMillisecondsPrints)
{
    constexpr int delayMs = 10;
    Line.SetDelay(delayMs);
    constexpr int cards = 5;
    for (int i = 0; i < cards; ++i)
        ExpectACard();
}

} // namespace vantrel::test
