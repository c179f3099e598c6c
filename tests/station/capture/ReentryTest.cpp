#include "StationWithLayout.h"

using namespace vantrel;
using namespace vantrel::test;

namespace {

/// Records that arrive while another is processed. Events run twice for a record: before it is
/// framed, and after its values are on the page.
class Reentry : public StationWithLayout
{
protected:
    Reentry() { OpenLayout(); }

    void BeforeFraming(std::function<void()> happens)
    {
        Station.Operator.WhileEventsRun = {std::move(happens)};
    }

    void AfterFields(std::function<void()> happens)
    {
        Station.Operator.WhileEventsRun = {[] {}, std::move(happens)};
    }
};

} // namespace

TEST_F(Reentry, ArrivalBeforeFramingPrintsTheFirstRecordTwiceAndIsLost)
{
    BeforeFraming([&] { Arrive("<C+D>"); });
    Arrive("<A+B>");
    EXPECT_EQ(Printed(), Prints({A, B, A, B}));
    // The values were emptied before events ran, and the nested pass left its own there.
    EXPECT_EQ(Values(), (QStringList{A, B, A, B}));
    EXPECT_EQ(Session.InputBuffer.Text(), QString());
}

TEST_F(Reentry, ArrivalAfterTheFieldsPrintsItsValuesTwice)
{
    AfterFields([&] { Arrive("<C+D>"); });
    Arrive("<A+B>");
    EXPECT_EQ(Printed(), Prints({C, D, C, D}));
    EXPECT_EQ(Values(), (QStringList{C, D}));
    EXPECT_EQ(Session.InputBuffer.Text(), QString());
}

TEST_F(Reentry, ArrivalAfterTheFieldsIsKeptBehindTheFramedText)
{
    Session.Settings.BufferData = true;
    AfterFields([&] { Arrive("<C+D>"); });
    Arrive("<A+B>");
    ASSERT_EQ(Session.RecordQueue.RecordCount, 2);
    EXPECT_EQ(Session.RecordQueue.BufferedRecords[0]->RawData, QStringLiteral("A+B<C+D>"));
    // Keeping the nested record took the delimiters from the raw text that both share.
    EXPECT_EQ(Session.RecordQueue.BufferedRecords[1]->RawData, QStringLiteral("A+BC+D"));
}

TEST_F(Reentry, HalfARecordThatComesBeforeFramingIsLost)
{
    // The buffer still holds the whole first record, so that even half a record runs the road.
    BeforeFraming([&] { Arrive("<C"); });
    Arrive("<A+B>");
    EXPECT_EQ(Printed(), Prints({A, B, A, B}));
    EXPECT_EQ(Session.InputBuffer.Text(), QString());
    Station.Printers.Operations.clear();
    Arrive("+D>");
    EXPECT_EQ(Printed(), QStringList());
}

TEST_F(Reentry, HalfARecordThatComesAfterTheFieldsIsLost)
{
    AfterFields([&] { Arrive("<C"); });
    Arrive("<A+B>");
    EXPECT_EQ(Printed(), Prints({A, B}));
    EXPECT_EQ(Session.InputBuffer.Text(), QString());
}

TEST_F(Reentry, CloseBeforeFramingDoesNotTakeTheRecord)
{
    BeforeFraming([&] { Session.InputBuffer.Clear(); });
    Arrive("<A+B>");
    EXPECT_EQ(Printed(), Prints({A, B}));
    EXPECT_EQ(Session.LastRawData, QStringLiteral("<A+B>"));
}

TEST_F(Reentry, CloseAfterTheFieldsDoesNotTakeTheCard)
{
    AfterFields([&] { Session.InputBuffer.Clear(); });
    Arrive("<A+B>");
    EXPECT_EQ(Printed(), Prints({A, B}));
}

TEST_F(Reentry, LayoutClosedBeforeFramingPrintsNothing)
{
    BeforeFraming([&] { CloseLayout(Session); });
    Arrive("<A+B>");
    EXPECT_EQ(Printed(), QStringList());
    EXPECT_EQ(Values(), (QStringList{A, B}));
}

TEST_F(Reentry, LayoutClosedAfterTheFieldsPrintsNothing)
{
    AfterFields([&] { CloseLayout(Session); });
    Arrive("<A+B>");
    EXPECT_EQ(Printed(), QStringList());
    EXPECT_EQ(Session.Face.StatusPanel(3).Text, QStringLiteral("Got Data (TCP/IP)"));
}

TEST_F(Reentry, LayoutOpenedAfterTheFieldsIsFilledWhenItPrints)
{
    AfterFields([&] { EXPECT_TRUE(LoadLayout(Session, QStringLiteral("Badge"))); });
    Arrive("<A+B>");
    EXPECT_EQ(Printed(), Prints({A, B}));
}

TEST_F(Reentry, ArrivalBetweenTwoCopiesReplacesTheValuesOfTheSecond)
{
    Session.Settings.MainVisible = true;
    Session.CurrentParams.PrinterCopies = 2;
    // Besides the two times for the record itself, events run after each page.
    Station.Operator.WhileEventsRun = {[] {}, [] {},
                                       [&] {
                                           Session.CurrentParams.AutoSpool = false;
                                           Arrive("<C+D>");
                                       }};
    Arrive("<A+B>");
    EXPECT_EQ(Printed(), Prints({A, B, C, D}));
}
