#include "station/compose/CardSequence.h"
#include "base/Failure.h"
#include "station/capture/Pipeline.h"
#include "station/macro/MacroChoice.h"
#include "station/macro/MacroTable.h"
#include "support/FailureOf.h"
#include "support/Layouts.h"
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

SequenceOrder Numbers(const char* start, const char* end)
{
    SequenceOrder order;
    order.Start = QLatin1StringView(start);
    order.End = QLatin1StringView(end);
    return order;
}

/// A station that keeps the raw text of each record of a run.
class SequenceStation : public TestSession
{
public:
    SequenceStation()
    {
        Session.Settings.Framing = {QStringLiteral("[2]"), QStringLiteral("|"),
                                    QStringLiteral("[3]")};
    }
    QStringList Run(const SequenceOrder& order)
    {
        QStringList sent;
        RunSequence(Session, order, [&](double, double) {
            sent += Session.LastRawData;
            return true;
        });
        return sent;
    }
    void ExpectOwnDelimiters() const
    {
        EXPECT_EQ(Session.Settings.Framing.DataStart, QStringLiteral("[2]"));
        EXPECT_EQ(Session.Settings.Framing.DataSeperator, QStringLiteral("|"));
        EXPECT_EQ(Session.Settings.Framing.DataEnd, QStringLiteral("[3]"));
    }
};

TEST(CardSequence, RunsUpToTheNumberBeforeTheEnd)
{
    SequenceStation station;
    EXPECT_EQ(station.Run(Numbers("1", "4")),
              (QStringList{QStringLiteral("<1>"), QStringLiteral("<2>"), QStringLiteral("<3>")}));
    EXPECT_EQ(station.Run(Numbers("1", "1")), QStringList());
    station.ExpectOwnDelimiters();
}

TEST(CardSequence, AppendsTheCheckDigit)
{
    SequenceStation station;
    SequenceOrder order = Numbers("1", "4");
    order.CheckDigit = SequenceDigit::Mod10;
    EXPECT_EQ(station.Run(order), (QStringList{QStringLiteral("<17>"), QStringLiteral("<24>"),
                                               QStringLiteral("<31>")}));
    order = Numbers("40012345", "40012346");
    order.CheckDigit = SequenceDigit::Codabar;
    EXPECT_EQ(station.Run(order), QStringList{QStringLiteral("<400123451>")});
}

TEST(CardSequence, AddsTheNumberInGroups)
{
    SequenceStation station;
    SequenceOrder order = Numbers("12345", "12346");
    order.Spacing = true;
    order.DigitCount = QStringLiteral("2");
    EXPECT_EQ(station.Run(order), QStringList{QStringLiteral("<12345+12 34 5>")});
    order.DigitCount = QStringLiteral("5");
    EXPECT_EQ(station.Run(order), QStringList{QStringLiteral("<12345+12345>")});
}

TEST(CardSequence, GroupsAreMadeOfTheNumberWithItsCheckDigit)
{
    SequenceStation station;
    SequenceOrder order = Numbers("10", "12");
    order.CheckDigit = SequenceDigit::Mod10;
    order.Spacing = true;
    order.DigitCount = QStringLiteral("2");
    EXPECT_EQ(station.Run(order),
              (QStringList{QStringLiteral("<107+10 7>"), QStringLiteral("<116+11 6>")}));
    order.Start = QStringLiteral("1");
    order.End = QStringLiteral("3");
    EXPECT_EQ(station.Run(order),
              (QStringList{QStringLiteral("<17+17>"), QStringLiteral("<24+24>")}));
}

TEST(CardSequence, ALeadingZeroIsLost)
{
    SequenceStation station;
    EXPECT_EQ(station.Run(Numbers("007", "8")), QStringList{QStringLiteral("<7>")});
}

TEST(CardSequence, AnInvalidRunSendsNothing)
{
    SequenceStation station;
    for (const auto& [start, end] : {std::pair{"", ""}, {"one", "5"}, {"1", "five"}, {"5", "1"}}) {
        EXPECT_EQ(station.Run(Numbers(start, end)), QStringList()) << start << " to " << end;
        station.ExpectOwnDelimiters();
    }
    SequenceOrder order = Numbers("1", "5");
    order.Spacing = true;
    for (const char* digits : {"0", "-3", "", "two"}) {
        order.DigitCount = QLatin1StringView(digits);
        EXPECT_EQ(station.Run(order), QStringList()) << digits;
    }
    EXPECT_EQ(station.Operator.AppMessages, QStringList());
}

TEST(CardSequence, ANumberWithoutACheckDigitEndsTheRun)
{
    SequenceOrder order = Numbers("-2", "2");
    order.CheckDigit = SequenceDigit::Mod10;
    EXPECT_EQ(FailureOf([&] { MakeSequenceRow(order, -2); }), FailureNumber::TypeMismatch);
    SequenceStation station;
    EXPECT_EQ(station.Run(order), QStringList());
    station.ExpectOwnDelimiters();
}

TEST(CardSequence, ARunOfNumbersTooLargeToRiseStillEnds)
{
    SequenceStation station;
    EXPECT_EQ(station.Run(Numbers("100000000000000000000", "100000000000000016384")).size(), 16384);
}

TEST(CardSequence, ARecordThatArrivesDuringTheRunIsFramedByTheOperatorsDelimiters)
{
    SequenceStation station;
    QStringList values;
    station.Operator.WhileEventsRun.emplace_back([&] {
        TakeArrival(station.Session, QStringLiteral("<Anna+7>"), {});
        values << station.Session.FieldValues.Item(1) << station.Session.FieldValues.Item(2);
    });
    station.Run(Numbers("1", "2"));
    EXPECT_EQ(values, (QStringList{QStringLiteral("Anna"), QStringLiteral("7")}));
    station.ExpectOwnDelimiters();
}

TEST(CardSequence, ARunThatIsEndedPutsTheDelimitersBack)
{
    SequenceStation station;
    int sent = 0;
    RunSequence(station.Session, Numbers("1", "100"), [&](double, double) { return ++sent < 3; });
    EXPECT_EQ(sent, 3);
    station.ExpectOwnDelimiters();
}

TEST(CardSequence, PrintsACardOfEachNumberAndRunsNoMacro)
{
    TestSession station;
    station.WithDatabase();
    BeginLayout(station.Session, QStringLiteral("Badge"));
    AddField(station.Session, 1);
    SavePage(station.Session);
    station.Session.CurrentParams.LayoutOpen = true;
    const QString macro = QStringLiteral("Chain");
    AddMacro(station.Session.LayoutDb, macro);
    SaveActiveMacro(station.Session, {1, macro}, {QStringLiteral("Badge")});
    station.Printers.Operations.clear();
    RunSequence(station.Session, Numbers("7", "9"), [](double, double) { return true; });
    EXPECT_EQ(station.Printers.Only({QStringLiteral("Print(\"7"), QStringLiteral("Print(\"8"),
                                     QStringLiteral("EndDoc")}),
              (QStringList{QStringLiteral("Print(\"7\")"), QStringLiteral("EndDoc"),
                           QStringLiteral("Print(\"8\")"), QStringLiteral("EndDoc")}));
    EXPECT_EQ(station.Session.CurrentLayoutName, QStringLiteral("Badge"));
}

TEST(CardSequence, WithoutAutomaticPrintingTheLastNumberStaysInTheFields)
{
    TestSession station;
    station.WithDatabase();
    BeginLayout(station.Session, QStringLiteral("Badge"));
    CardObject& field = AddField(station.Session, 1);
    station.Session.CurrentParams.AutoSpool = false;
    RunSequence(station.Session, Numbers("7", "9"), [](double, double) { return true; });
    EXPECT_EQ(field.Caption(), QStringLiteral("8"));
    EXPECT_EQ(station.Printers.Only({QStringLiteral("EndDoc")}), QStringList());
}

} // namespace
} // namespace vantrel::test
