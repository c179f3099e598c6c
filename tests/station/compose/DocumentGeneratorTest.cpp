#include "station/compose/DocumentGenerator.h"
#include "station/layout/LoadLayout.h"
#include "station/macro/MacroChoice.h"
#include "station/macro/MacroTable.h"
#include "station/session/BufferedRecord.h"
#include "support/Layouts.h"
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

/// A station with the layouts "A" and "B", of one field each, and kept records.
class GeneratorStation : public TestSession
{
public:
    GeneratorStation()
    {
        WithDatabase();
        Session.Settings.Framing = {QStringLiteral("<"), QStringLiteral("+"), QStringLiteral(">")};
        for (const char* name : {"A", "B"}) {
            BeginLayout(Session, QLatin1StringView(name));
            AddText(Session, QLatin1StringView(name));
            AddField(Session, 1);
            SavePage(Session);
        }
        Printers.Operations.clear();
    }
    void Keep(const char* record)
    {
        QString text = QLatin1StringView(record);
        BufferRecord(Session.RecordQueue, Session.Settings, text);
    }
    static QStringList Texts(const RecordList& list)
    {
        QStringList texts;
        for (const RecordList::Line& line : list.Lines())
            texts += line.Text;
        return texts;
    }
    QStringList Printed() const
    {
        return Printers.Only({QStringLiteral("Print(\"A"), QStringLiteral("Print(\"B")});
    }
};

TEST(RecordList, ShowsTheFirstValueOfEachRecord)
{
    GeneratorStation station;
    station.Keep("<Anna+7>");
    station.Keep("<Bert+8>");
    const RecordList list(station.Session.RecordQueue);
    EXPECT_EQ(GeneratorStation::Texts(list),
              (QStringList{QStringLiteral("Anna"), QStringLiteral("Bert")}));
    EXPECT_EQ(list.Lines().front().RawData, QStringLiteral("<Anna+7>"));
    EXPECT_EQ(list.ViewedField(), 1);
}

TEST(RecordList, TheViewedFieldGoesUpAndDownAndNotBelowOne)
{
    GeneratorStation station;
    station.Keep("<Anna+7+x>");
    RecordList list(station.Session.RecordQueue);
    list.ViewNextField();
    EXPECT_EQ(GeneratorStation::Texts(list), QStringList{QStringLiteral("7")});
    list.ViewFieldBefore();
    list.ViewFieldBefore();
    EXPECT_EQ(list.ViewedField(), 1);
    EXPECT_EQ(GeneratorStation::Texts(list), QStringList{QStringLiteral("Anna")});
}

TEST(RecordList, AViewedFieldBeyondTheLargestRecordReturnsToItsLastField)
{
    GeneratorStation station;
    station.Keep("<Anna+7>");
    RecordList list(station.Session.RecordQueue);
    list.ViewNextField();
    list.ViewNextField();
    EXPECT_EQ(list.ViewedField(), 2);
    EXPECT_EQ(GeneratorStation::Texts(list), QStringList{QStringLiteral("7")});
}

TEST(RecordList, ARecordWithFewerValuesLowersTheViewedField)
{
    GeneratorStation station;
    station.Keep("<Anna+7>");
    RecordList list(station.Session.RecordQueue);
    list.ViewNextField();
    station.Keep("<Bert>");
    EXPECT_TRUE(list.LookForRecords());
    EXPECT_EQ(list.ViewedField(), 1);
    EXPECT_EQ(GeneratorStation::Texts(list).last(), QStringLiteral("Bert"));
}

TEST(RecordList, ARecordWithoutValuesHasNoLineAndHidesNoOther)
{
    GeneratorStation station;
    station.Keep("<>");
    station.Keep("");
    station.Keep("<Anna>");
    const RecordList list(station.Session.RecordQueue);
    EXPECT_EQ(list.ViewedField(), 1);
    EXPECT_EQ(GeneratorStation::Texts(list), QStringList{QStringLiteral("Anna")});
}

TEST(RecordList, ReadsAgainOnlyWhenTheQueueHasGrown)
{
    GeneratorStation station;
    RecordList list(station.Session.RecordQueue);
    EXPECT_FALSE(list.LookForRecords());
    station.Keep("<Anna>");
    EXPECT_TRUE(list.LookForRecords());
    EXPECT_FALSE(list.LookForRecords());
}

TEST(RecordList, ClearHidesTheRecordsAndANewOneShows)
{
    GeneratorStation station;
    station.Keep("<Anna>");
    RecordList list(station.Session.RecordQueue);
    list.Clear();
    EXPECT_TRUE(list.Lines().empty());
    EXPECT_EQ(station.Session.RecordQueue.RecordCount, 1);
    EXPECT_EQ(station.Session.RecordQueue.BufferedRecords.size(), 1U);
    station.Keep("<Bert>");
    EXPECT_TRUE(list.LookForRecords());
    EXPECT_EQ(GeneratorStation::Texts(list), QStringList{QStringLiteral("Bert")});
    EXPECT_EQ(GeneratorStation::Texts(RecordList(station.Session.RecordQueue)),
              QStringList{QStringLiteral("Bert")});
}

TEST(RecordList, ClearingAnEmptyQueueHidesNoLaterRecord)
{
    GeneratorStation station;
    RecordList list(station.Session.RecordQueue);
    list.Clear();
    EXPECT_FALSE(list.LookForRecords());
    station.Keep("<Anna>");
    EXPECT_TRUE(list.LookForRecords());
    EXPECT_EQ(GeneratorStation::Texts(list), QStringList{QStringLiteral("Anna")});
}

TEST(PrintOnLayouts, PrintsTheRecordOnEachAndLeavesNoneOpen)
{
    GeneratorStation station;
    ASSERT_TRUE(LoadLayout(station.Session, QStringLiteral("A")));
    PrintOnLayouts(station.Session, QStringLiteral("<Anna>"),
                   {QStringLiteral("A"), QStringLiteral("B")});
    EXPECT_EQ(station.Printed(),
              (QStringList{QStringLiteral("Print(\"A\")"), QStringLiteral("Print(\"Anna\")"),
                           QStringLiteral("Print(\"B\")"), QStringLiteral("Print(\"Anna\")")}));
    EXPECT_EQ(station.Session.CurrentLayoutName, QString());
    EXPECT_FALSE(station.Session.Document.IsLoaded());
    EXPECT_EQ(station.Session.Face.Caption(), QStringLiteral(" Vantrel v6.0"));
}

TEST(PrintOnLayouts, RunsNoMacro)
{
    GeneratorStation station;
    const QString macro = QStringLiteral("Chain");
    AddMacro(station.Session.LayoutDb, macro);
    SaveActiveMacro(station.Session, {1, macro}, {QStringLiteral("B")});
    PrintOnLayouts(station.Session, QStringLiteral("<Anna>"), {QStringLiteral("A")});
    EXPECT_EQ(station.Printed(),
              (QStringList{QStringLiteral("Print(\"A\")"), QStringLiteral("Print(\"Anna\")")}));
}

TEST(PrintOnLayouts, GoesByTheLayoutsOwnRulesWhateverPageWasOpen)
{
    GeneratorStation station;
    BeginLayout(station.Session, QStringLiteral("Manual"));
    station.Session.CurrentParams.AutoSpool = false;
    AddText(station.Session, QStringLiteral("front"));
    SavePage(station.Session);
    BeginPage(station.Session, 2);
    AddText(station.Session, QStringLiteral("behind"));
    SavePage(station.Session);
    station.Printers.Operations.clear();
    PrintOnLayouts(station.Session, QStringLiteral("<Anna>"), {QStringLiteral("A")});
    EXPECT_EQ(station.Printed(),
              (QStringList{QStringLiteral("Print(\"A\")"), QStringLiteral("Print(\"Anna\")")}));
}

TEST(PrintOnLayouts, ALayoutThatIsGoneIsPassedOver)
{
    GeneratorStation station;
    PrintOnLayouts(station.Session, QStringLiteral("<Anna>"),
                   {QStringLiteral("Gone"), QStringLiteral("B")});
    EXPECT_EQ(station.Printers.Operations.count(QStringLiteral("Print(\"Anna\")")), 1);
}

TEST(PrintOnLayouts, WithoutAMarkedLayoutNothingHappens)
{
    GeneratorStation station;
    ASSERT_TRUE(LoadLayout(station.Session, QStringLiteral("A")));
    PrintOnLayouts(station.Session, QStringLiteral("<Anna>"), {});
    EXPECT_EQ(station.Session.CurrentLayoutName, QStringLiteral("A"));
    EXPECT_EQ(station.Printed(), QStringList());
}

TEST(PrintOnLayouts, WithoutARecordNothingIsApplied)
{
    GeneratorStation station;
    PrintOnLayouts(station.Session, QString(), {QStringLiteral("A")});
    EXPECT_EQ(station.Session.FieldValues.Count(), 0);
}

} // namespace
} // namespace vantrel::test
