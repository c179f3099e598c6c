#include "station/macro/MacroChoice.h"
#include "MacroStation.h"
#include "base/Profile.h"
#include "station/layout/DeleteLayout.h"
#include "station/layout/Navigation.h"
#include "station/session/Settings.h"

// The operator's choice of a macro, and its effect on the next record.

namespace vantrel::test {
namespace {

class MacroChoice : public MacroStation
{
protected:
    MacroChoice()
    {
        DefineMacro(Macro, {QStringLiteral("B"), QStringLiteral("Gone"), QStringLiteral("A")});
        DefineMacro(Badges, {QStringLiteral("C")});
    }

    MacroRow Row(const QString& name)
    {
        for (const MacroRow& row : MacroRows(Session.LayoutDb))
            if (row.Name == name)
                return row;
        ADD_FAILURE() << "no macro " << name.toStdString();
        return {};
    }

    void Save(const QString& macro, const QStringList& layouts)
    {
        SaveActiveMacro(Session, Row(macro), layouts);
    }

    /// All rows of all chains as "macro layout".
    QStringList Elements()
    {
        QStringList elements;
        Recordset rows(Session.LayoutDb);
        for (rows.Open(QStringLiteral("SELECT * FROM [MacroElements]")); !rows.IsEof();
             rows.MoveNext())
            elements.append(rows.Value(QStringLiteral("MacroID")).toString() + QLatin1Char(' ') +
                            rows.Value(QStringLiteral("LayoutName")).toString());
        return elements;
    }

    /// The setting as the file of the station has it.
    QString StoredActiveMacro() const
    {
        return ReadProfileValue(SettingsPath(Session.ProgramFolder), SessionSection(Session),
                                QStringLiteral("ActiveMacro"), QStringLiteral("none"));
    }

    const QString Badges = QStringLiteral("Badges");
    const QStringList BothChains = {QStringLiteral("1 B"), QStringLiteral("1 Gone"),
                                    QStringLiteral("1 A"), QStringLiteral("2 C")};
};

} // namespace

TEST_F(MacroChoice, TheRowThatTurnsMacrosOffIsTheLast)
{
    const QList<MacroRow> rows = MacroRows(Session.LayoutDb);
    ASSERT_EQ(rows.size(), 3);
    EXPECT_EQ(rows[0].Id, 1);
    EXPECT_EQ(rows[0].Name, Macro);
    EXPECT_EQ(rows[1].Id, 2);
    EXPECT_EQ(rows[1].Name, Badges);
    EXPECT_EQ(rows[2].Id, 0);
    EXPECT_EQ(rows[2].Name, QStringLiteral("Disable Macro Processing"));
}

TEST_F(MacroChoice, ThePresentStateIsTheActiveMacroOrTheRowThatTurnsThemOff)
{
    EXPECT_EQ(ActiveMacroText(Session.Settings), QStringLiteral("Disable Macro Processing"));
    Session.Settings.ActiveMacro = Badges;
    EXPECT_EQ(ActiveMacroText(Session.Settings), Badges);
}

TEST_F(MacroChoice, LayoutsComeInTheOrderOfTheirRowsWhetherTheyExistOrNot)
{
    EXPECT_EQ(LayoutsGivenTo(Session.LayoutDb, 1),
              QStringList({QStringLiteral("B"), QStringLiteral("Gone"), QStringLiteral("A")}));
    EXPECT_EQ(LayoutsGivenTo(Session.LayoutDb, 0), QStringList());
}

TEST_F(MacroChoice, ASaveReplacesTheLayoutsOfItsMacroAndMakesItActiveAtOnce)
{
    Save(Macro, {QStringLiteral("C"), QStringLiteral("A")});
    EXPECT_EQ(Elements(),
              QStringList({QStringLiteral("2 C"), QStringLiteral("1 C"), QStringLiteral("1 A")}));
    EXPECT_EQ(Session.Settings.ActiveMacro, Macro);
    EXPECT_EQ(StoredActiveMacro(), Macro);
    Arrive("<1>");
    EXPECT_EQ(Printed(), Cards({QStringLiteral("C 1"), QStringLiteral("A 1")}));
}

TEST_F(MacroChoice, TheActiveMacroIsThereAfterARestart)
{
    Save(Badges, {QStringLiteral("C")});
    vantrel::Session next(Session.ProgramFolder, Station.Operator, Station.Printers);
    LoadSettings(next);
    EXPECT_EQ(next.Settings.ActiveMacro, Badges);
}

TEST_F(MacroChoice, AMacroWithoutLayoutsIsActiveAndLeavesTheOpenLayoutPrinting)
{
    ASSERT_TRUE(LoadLayout(Session, QStringLiteral("C")));
    Station.Printers.Operations.clear();
    Save(Macro, {});
    EXPECT_EQ(Elements(), QStringList(QStringLiteral("2 C")));
    EXPECT_EQ(Session.Settings.ActiveMacro, Macro);
    Arrive("<1>");
    Arrive("<2>");
    EXPECT_EQ(Printed(), Cards({QStringLiteral("C 1"), QStringLiteral("C 2")}));
}

TEST_F(MacroChoice, TurningMacrosOffLeavesTheLayoutsOfAll)
{
    Save(Badges, {QStringLiteral("C")});
    Save(DisableMacrosText, {QStringLiteral("A"), QStringLiteral("B")});
    EXPECT_EQ(Elements(), BothChains);
    EXPECT_EQ(Session.Settings.ActiveMacro, QString());
    EXPECT_EQ(StoredActiveMacro(), QString());
    Arrive("<1>");
    EXPECT_EQ(Printed(), QStringList());
}

TEST_F(MacroChoice, TwoMacrosMayShareALayout)
{
    Save(Macro, {QStringLiteral("C")});
    EXPECT_EQ(LayoutsGivenTo(Session.LayoutDb, 1), LayoutsGivenTo(Session.LayoutDb, 2));
    Save(Macro, {});
    EXPECT_EQ(LayoutsGivenTo(Session.LayoutDb, 2), QStringList(QStringLiteral("C")));
}

TEST_F(MacroChoice, ALayoutDeletedAfterTheSavePrintsNothingAndClosesTheOpenOne)
{
    Save(Macro, {QStringLiteral("A"), QStringLiteral("B")});
    DeleteLayoutRows(Session, QStringLiteral("B"));
    ASSERT_TRUE(LoadLayout(Session, QStringLiteral("Manual")));
    Station.Printers.Operations.clear();
    Arrive("<1>");
    EXPECT_EQ(Printed(), Cards({QStringLiteral("A 1")}));
    EXPECT_TRUE(Session.CurrentLayoutName.isEmpty());
    EXPECT_FALSE(Session.Document.IsLoaded());
    EXPECT_TRUE(Station.Operator.AppMessages.isEmpty());
    EXPECT_TRUE(Station.Operator.CriticalBoxes.isEmpty());
}

TEST_F(MacroChoice, AMacroChosenWhileTheChainPrintsCountsForTheNextRecord)
{
    Save(Macro, {QStringLiteral("A"), QStringLiteral("B")});
    Session.Settings.MainVisible = true;
    Station.Operator.WhileEventsRun = {[] {}, [] {}, [&] { Save(Badges, {QStringLiteral("C")}); }};
    Arrive("<1>");
    EXPECT_EQ(Printed(), Cards({QStringLiteral("A 1"), QStringLiteral("B 1")}));
    Station.Printers.Operations.clear();
    Arrive("<2>");
    EXPECT_EQ(Printed(), Cards({QStringLiteral("C 2")}));
}

TEST_F(MacroChoice, TwentyMarkedLayoutsPrintInTheOrderOfTheList)
{
    for (int i = 20; i >= 1; --i) {
        BeginCard(QStringLiteral("Layout %1").arg(i, 2, 10, QLatin1Char('0')));
        SavePage(Session);
    }
    CloseLayout(Session);
    Station.Printers.Operations.clear();
    const QStringList layouts = LayoutNames(Session.LayoutDb).filter(QStringLiteral("Layout "));
    ASSERT_EQ(layouts.size(), 20);
    Save(Macro, layouts);
    Arrive("<7>");
    QStringList cards;
    for (int i = 1; i <= 20; ++i)
        cards.append(QStringLiteral("Layout %1 7").arg(i, 2, 10, QLatin1Char('0')));
    EXPECT_EQ(Printed(), Cards(cards));
}

TEST_F(MacroChoice, WithTheStoreClosedOnlyTheRowThatTurnsMacrosOffIsLeftAndWorks)
{
    Session.Settings.ActiveMacro = Macro;
    Session.LayoutDb.Close();
    ASSERT_EQ(MacroRows(Session.LayoutDb).size(), 1);
    EXPECT_EQ(MacroRows(Session.LayoutDb)[0].Name, DisableMacrosText);
    EXPECT_EQ(LayoutsGivenTo(Session.LayoutDb, 1), QStringList());
    Save(DisableMacrosText, {});
    EXPECT_EQ(StoredActiveMacro(), QString());
    // The choice is kept even though its layouts could not be written.
    SaveActiveMacro(Session, {1, Macro}, {QStringLiteral("A")});
    EXPECT_EQ(StoredActiveMacro(), Macro);
}

TEST_F(MacroChoice, AMacroWithoutAKeyOrANameIsListedAndTurnsMacrosOff)
{
    Recordset rows(Session.LayoutDb);
    rows.Open(QStringLiteral("SELECT * FROM [Macros]"), CursorLock::Optimistic);
    rows.AddNew();
    rows.Update();
    const QList<MacroRow> macros = MacroRows(Session.LayoutDb);
    ASSERT_EQ(macros.size(), 4);
    EXPECT_EQ(macros[2].Id, 0);
    EXPECT_EQ(macros[2].Name, QString());
    Session.Settings.ActiveMacro = Macro;
    SaveActiveMacro(Session, macros[2], {QStringLiteral("A")});
    EXPECT_EQ(Session.Settings.ActiveMacro, QString());
    EXPECT_EQ(Elements(), BothChains);
}

} // namespace vantrel::test
