#include "MacroStation.h"
#include "base/Profile.h"
#include "station/capture/Ports.h"
#include "station/capture/SerialCapture.h"
#include "station/session/Settings.h"
#include "support/Events.h"
#include "support/PtyPair.h"

// A macro that a record starts: what the open layout prints, what the chain prints, and what
// happens to records that arrive meanwhile.

namespace vantrel::test {
namespace {

class MacroOnArrival : public MacroStation
{
protected:
    void OpenWithMacro(const QString& layout, const QStringList& chain)
    {
        ASSERT_TRUE(LoadLayout(Session, layout));
        Station.Printers.Operations.clear();
        DefineMacro(Macro, chain);
        Session.Settings.ActiveMacro = Macro;
    }

    /// Runs a routine after the first page of the chain of a record that prints on no other layout:
    /// events run twice for a record, then after each page while the station is visible.
    void AfterFirstCardOfChain(std::function<void()> happens)
    {
        Session.Settings.MainVisible = true;
        Station.Operator.WhileEventsRun = {[] {}, [] {}, std::move(happens)};
    }
};

} // namespace

TEST_F(MacroOnArrival, OnlyTheFirstRecordPrintsOnTheOpenLayoutBesidesTheChain)
{
    OpenWithMacro(QStringLiteral("C"), {QStringLiteral("A"), QStringLiteral("B")});
    Arrive("<1>");
    EXPECT_EQ(Printed(),
              Cards({QStringLiteral("C 1"), QStringLiteral("A 1"), QStringLiteral("B 1")}));
    Station.Printers.Operations.clear();
    Arrive("<2>");
    EXPECT_EQ(Printed(), Cards({QStringLiteral("A 2"), QStringLiteral("B 2")}));
    EXPECT_EQ(Session.Face.StatusPanel(3).Text, QStringLiteral("Got Data (TCP/IP)"));
}

TEST_F(MacroOnArrival, ARecordFromTheSerialPortRunsTheChainToo)
{
    const PtyPair cable(Session.PathInFolder(QStringLiteral("adapter")));
    ASSERT_TRUE(WriteProfileValue(SettingsPath(Session.ProgramFolder),
                                  QStringLiteral("Serial Ports"), QStringLiteral("COM2"),
                                  cable.Device()));
    Session.Settings.UseSerial = true;
    Session.Settings.SPort = 2;
    ConnectComm(Session);
    SwitchPorts(Session, SwitchMode::Serial);
    OpenWithMacro(QStringLiteral("Manual"), {QStringLiteral("A"), QStringLiteral("B")});
    cable.Send("<1>");
    ASSERT_TRUE(EventsUntil(
        [&] { return Session.Face.StatusPanel(3).Text == QStringLiteral("Got Data (COM2)"); }));
    EXPECT_EQ(Printed(), Cards({QStringLiteral("A 1"), QStringLiteral("B 1")}));
}

TEST_F(MacroOnArrival, AnOpenLayoutWithoutAutomaticPrintingPrintsInTheChainOnly)
{
    OpenWithMacro(QStringLiteral("Manual"), {QStringLiteral("Manual")});
    Arrive("<1>");
    EXPECT_EQ(Printed(), Cards({QStringLiteral("Manual 1")}));
}

TEST_F(MacroOnArrival, AMacroWithoutLayoutsLeavesTheOpenLayoutPrinting)
{
    OpenWithMacro(QStringLiteral("C"), {});
    Arrive("<1>");
    Arrive("<2>");
    EXPECT_EQ(Printed(), Cards({QStringLiteral("C 1"), QStringLiteral("C 2")}));
}

TEST_F(MacroOnArrival, ARecordThatCameFromNoPortPrintsOnTheOpenLayoutOnly)
{
    OpenWithMacro(QStringLiteral("C"), {QStringLiteral("A")});
    ProcessStream(Session, QStringLiteral("<1>"));
    EXPECT_EQ(Printed(), Cards({QStringLiteral("C 1")}));
    EXPECT_EQ(Session.CurrentLayoutName, QStringLiteral("C"));
}

TEST_F(MacroOnArrival, TheNameIsLookedUpAfreshForEachRecord)
{
    OpenWithMacro(QStringLiteral("C"), {QStringLiteral("A")});
    Arrive("<1>");
    DefineMacro(QStringLiteral("Second"), {QStringLiteral("B")});
    Session.Settings.ActiveMacro = QStringLiteral("Second");
    Arrive("<2>");
    Session.Settings.ActiveMacro.clear();
    Arrive("<3>");
    EXPECT_EQ(Printed(),
              Cards({QStringLiteral("C 1"), QStringLiteral("A 1"), QStringLiteral("B 2")}));
}

TEST_F(MacroOnArrival, ARecordDuringTheChainRunsItsOwnAndTheOuterOneTakesItsValues)
{
    OpenWithMacro(QStringLiteral("Manual"), {QStringLiteral("Manual"), QStringLiteral("B")});
    AfterFirstCardOfChain([&] { Arrive("<2>"); });
    Arrive("<1>");
    // The page of the chain is open while events run; it does not print by itself.
    EXPECT_EQ(Printed(), Cards({QStringLiteral("Manual 1"), QStringLiteral("Manual 2"),
                                QStringLiteral("B 2"), QStringLiteral("B 2")}));
    EXPECT_EQ(Session.CurrentLayoutName, QString());
    EXPECT_FALSE(Session.CurrentParams.LayoutOpen);
}

TEST_F(MacroOnArrival, ARecordDuringTheChainPrintsOnTheLayoutThatIsOpenThen)
{
    OpenWithMacro(QStringLiteral("Manual"), {QStringLiteral("A"), QStringLiteral("B")});
    AfterFirstCardOfChain([&] { Arrive("<2>"); });
    Arrive("<1>");
    EXPECT_EQ(Printed(), Cards({QStringLiteral("A 1"), QStringLiteral("A 2"), QStringLiteral("A 2"),
                                QStringLiteral("B 2"), QStringLiteral("B 2")}));
}

TEST_F(MacroOnArrival, ChangesToTheMacroDuringItsChainDoNotAffectTheChain)
{
    OpenWithMacro(QStringLiteral("Manual"), {QStringLiteral("A"), QStringLiteral("B")});
    AfterFirstCardOfChain([&] {
        Recordset rows(Session.LayoutDb);
        rows.Open(QStringLiteral("SELECT * FROM [MacroElements]"), CursorLock::Optimistic);
        for (; !rows.IsEof(); rows.MoveNext())
            rows.Delete();
        Session.Settings.ActiveMacro.clear();
    });
    Arrive("<1>");
    EXPECT_EQ(Printed(), Cards({QStringLiteral("A 1"), QStringLiteral("B 1")}));
    Arrive("<2>");
    EXPECT_EQ(Printed(), Cards({QStringLiteral("A 1"), QStringLiteral("B 1")}));
}

TEST_F(MacroOnArrival, ALayoutClosedWhileItPrintsDoesNotStopTheChain)
{
    OpenWithMacro(QStringLiteral("Manual"), {QStringLiteral("A"), QStringLiteral("B")});
    AfterFirstCardOfChain([&] { CloseLayout(Session); });
    Arrive("<1>");
    EXPECT_EQ(Printed(), Cards({QStringLiteral("A 1"), QStringLiteral("B 1")}));
}

} // namespace vantrel::test
