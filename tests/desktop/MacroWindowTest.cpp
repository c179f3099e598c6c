#include "desktop/DesktopStation.h"
#include "desktop/dialogs/frmMacro.h"
#include "station/layout/LoadLayout.h"
#include "station/macro/MacroTable.h"
#include "support/Layouts.h"
#include <QApplication>
#include <QListWidget>
#include <QPointer>
#include <QTest>
#include <QTreeWidget>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

const QString Macro = QStringLiteral("Card and carrier");
const QString Badges = QStringLiteral("Badges");
const QString Disable = QStringLiteral("Disable Macro Processing");

/// A station with the layouts "A", "B" and "C" and two macros: the first has B, A and a layout that
/// is gone, the second has C.
class MacroWindow : public DesktopStation
{
public:
    MacroWindow()
    {
        for (const char* name : {"C", "A", "B"})
            WithLayout(QLatin1StringView(name));
        CloseLayout(Session);
        AddMacro(Session.LayoutDb, Macro);
        AddMacro(Session.LayoutDb, Badges);
        SaveActiveMacro(Session, {2, Badges}, {QStringLiteral("C")});
        SaveActiveMacro(Session, {1, Macro},
                        {QStringLiteral("B"), QStringLiteral("Gone"), QStringLiteral("A")});
        Load();
    }

    void Open()
    {
        Choose("cmdMacro");
        Dialog = &Get<frmMacro>("frmMacro");
        QCoreApplication::processEvents();
    }

    QListWidget& Layouts() { return Named<QListWidget>(*Dialog, "lstLayouts"); }
    QTreeWidget& Macros() { return Named<QTreeWidget>(*Dialog, "lstMacros"); }

    /// The rows of the list of macros as "ID|MacroName".
    QStringList MacroTexts()
    {
        QStringList texts;
        for (int row = 0; row < Macros().topLevelItemCount(); ++row)
            texts.append(Macros().topLevelItem(row)->text(0) + QLatin1Char('|') +
                         Macros().topLevelItem(row)->text(1));
        return texts;
    }
    /// Name of the row that is selected; none gives no text.
    QString Selected()
    {
        const auto selected = Macros().selectedItems();
        return selected.isEmpty() ? QString() : selected.constFirst()->text(1);
    }
    /// The navigator has a button of the same name.
    void PressIn(const char* name)
    {
        Named<QAbstractButton>(*Dialog, name).click();
        QCoreApplication::processEvents();
    }
    void Select(int row) { Macros().setCurrentItem(Macros().topLevelItem(row)); }

    void Mark(int row, bool on)
    {
        Layouts().item(row)->setCheckState(on ? Qt::Checked : Qt::Unchecked);
    }
    QString Marked()
    {
        QString marked;
        for (int row = 0; row < Layouts().count(); ++row)
            if (Layouts().item(row)->checkState() == Qt::Checked)
                marked += Layouts().item(row)->text();
        return marked;
    }
    QString ChainOf(int id) { return LayoutsGivenTo(Session.LayoutDb, id).join(QString()); }

    QPointer<frmMacro> Dialog;
};

} // namespace

TEST(MacroWindow, ListsLayoutsByNameAndMacrosWithTheRowThatTurnsThemOffLast)
{
    MacroWindow station;
    station.Open();
    ASSERT_EQ(station.Layouts().count(), 3);
    for (int row = 0; row < 3; ++row) {
        EXPECT_EQ(station.Layouts().item(row)->text(), QString(QLatin1Char("ABC"[row])));
        EXPECT_TRUE(station.Layouts().item(row)->flags().testFlag(Qt::ItemIsUserCheckable));
    }
    EXPECT_EQ(station.MacroTexts(),
              QStringList({QStringLiteral("1|Card and carrier"), QStringLiteral("2|Badges"),
                           QStringLiteral("0|Disable Macro Processing")}));
    EXPECT_FALSE(station.Dialog->isModal());
    EXPECT_EQ(station.Named<QAbstractButton>(*station.Dialog, "cmdSave").text(),
              QStringLiteral("&Save Active Macro"));
    EXPECT_EQ(station.Named<QAbstractButton>(*station.Dialog, "cmdClose").text(),
              QStringLiteral("Close"));
}

TEST(MacroWindow, NamesAreSeenWhole)
{
    MacroWindow station;
    station.WithLayout(QStringLiteral("The long name of a layout for visitors"));
    AddMacro(station.Session.LayoutDb, QStringLiteral("The long name of a macro for visitors"));
    station.Open();
    QTreeWidget& macros = station.Macros();
    EXPECT_GE(macros.columnWidth(1), static_cast<QAbstractItemView&>(macros).sizeHintForColumn(1));
    EXPECT_GE(macros.viewport()->width(), macros.columnWidth(0) + macros.columnWidth(1));
    EXPECT_GE(station.Layouts().viewport()->width(), station.Layouts().sizeHintForColumn(0));
}

TEST(MacroWindow, OpensOnTheActiveMacroWithItsLayoutsMarked)
{
    MacroWindow station;
    station.Open();
    EXPECT_EQ(station.Selected(), Macro);
    EXPECT_EQ(station.Marked(), QStringLiteral("AB"));
}

TEST(MacroWindow, OpensOnTheRowThatTurnsMacrosOffWhereNoneIsActive)
{
    MacroWindow station;
    station.Session.Settings.ActiveMacro.clear();
    station.Open();
    EXPECT_EQ(station.Selected(), Disable);
    EXPECT_EQ(station.Marked(), QString());
}

TEST(MacroWindow, AnActiveMacroThatIsGoneSelectsNoRowAndASaveTurnsMacrosOff)
{
    MacroWindow station;
    station.Session.Settings.ActiveMacro = QStringLiteral("Gone");
    station.Open();
    EXPECT_EQ(station.Selected(), QString());
    EXPECT_EQ(station.Marked(), QString());
    station.Mark(0, true);
    station.PressIn("cmdSave");
    EXPECT_EQ(station.Session.Settings.ActiveMacro, QString());
    EXPECT_EQ(station.ChainOf(1), QStringLiteral("BGoneA"));
}

TEST(MacroWindow, MarksFollowTheSelectedMacroAndNothingIsSavedByThat)
{
    MacroWindow station;
    station.Open();
    station.Select(1);
    EXPECT_EQ(station.Marked(), QStringLiteral("C"));
    station.Mark(0, true);
    station.Select(2);
    EXPECT_EQ(station.Marked(), QString());
    station.Select(0);
    EXPECT_EQ(station.Marked(), QStringLiteral("AB"));
    station.Select(1);
    EXPECT_EQ(station.Marked(), QStringLiteral("C"));
    EXPECT_EQ(station.ChainOf(1), QStringLiteral("BGoneA"));
    EXPECT_EQ(station.ChainOf(2), QStringLiteral("C"));
    EXPECT_EQ(station.Session.Settings.ActiveMacro, Macro);
}

TEST(MacroWindow, AClickOnTheSelectedMacroReadsItsMarksAnew)
{
    MacroWindow station;
    station.Open();
    station.Mark(2, true);
    Q_EMIT station.Macros().itemClicked(station.Macros().topLevelItem(0), 1);
    EXPECT_EQ(station.Marked(), QStringLiteral("AB"));
}

TEST(MacroWindow, SaveWritesTheMarkedLayoutsInListOrderAndCloses)
{
    MacroWindow station;
    station.Open();
    station.Select(1);
    station.Mark(0, true);
    station.PressIn("cmdSave");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(station.Dialog.isNull());
    EXPECT_EQ(station.ChainOf(2), QStringLiteral("AC"));
    EXPECT_EQ(station.ChainOf(1), QStringLiteral("BGoneA"));
    EXPECT_EQ(station.Session.Settings.ActiveMacro, Badges);
    station.Open();
    EXPECT_EQ(station.Selected(), Badges);
    EXPECT_EQ(station.Marked(), QStringLiteral("AC"));
}

TEST(MacroWindow, ASaveDropsTheLayoutThatIsGone)
{
    MacroWindow station;
    station.Open();
    station.PressIn("cmdSave");
    EXPECT_EQ(station.ChainOf(1), QStringLiteral("AB"));
    EXPECT_EQ(station.Session.Settings.ActiveMacro, Macro);
}

TEST(MacroWindow, SavingTheRowThatTurnsMacrosOffLeavesAllLayouts)
{
    MacroWindow station;
    station.Open();
    station.Select(2);
    station.Mark(0, true);
    station.PressIn("cmdSave");
    EXPECT_EQ(station.Session.Settings.ActiveMacro, QString());
    EXPECT_EQ(station.ChainOf(1), QStringLiteral("BGoneA"));
    EXPECT_EQ(station.ChainOf(2), QStringLiteral("C"));
}

TEST(MacroWindow, CloseSavesNothing)
{
    MacroWindow station;
    station.Open();
    station.Select(1);
    station.Mark(0, true);
    station.PressIn("cmdClose");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(station.Dialog.isNull());
    EXPECT_EQ(station.ChainOf(2), QStringLiteral("C"));
    EXPECT_EQ(station.Session.Settings.ActiveMacro, Macro);
}

TEST(MacroWindow, BecomingActiveAgainItSelectsTheActiveMacro)
{
    MacroWindow station;
    station.Open();
    station.Select(1);
    QEvent active(QEvent::WindowActivate);
    QCoreApplication::sendEvent(station.Dialog, &active);
    EXPECT_EQ(station.Selected(), Macro);
    EXPECT_EQ(station.Marked(), QStringLiteral("AB"));
    // Marks of the macro that is selected already stay as the operator has them.
    station.Mark(2, true);
    QCoreApplication::sendEvent(station.Dialog, &active);
    EXPECT_EQ(station.Marked(), QStringLiteral("ABC"));
}

TEST(MacroWindow, WithoutTheDesignToolsItMakesNoMacros)
{
    MacroWindow station;
    station.Open();
    for (const char* name : {"cmdNewMacro", "cmdRenameMacro", "cmdRemoveMacro"})
        EXPECT_EQ(station.Dialog->findChild<QWidget*>(QLatin1StringView(name)), nullptr) << name;
    EXPECT_EQ(station.Layouts().count(), 3);
}

/// The same with the design tools on.
class MacroTools : public ::testing::Test
{
protected:
    MacroTools()
    {
        Station.Session.Options.DesignTools = true;
        Station.Open();
    }
    void Answer(const QStringList& inputs)
    {
        Station.Operator.Inputs.assign(inputs.begin(), inputs.end());
    }

    MacroWindow Station;
};

TEST_F(MacroTools, AMacroIsMadeAndSelected)
{
    Answer({QStringLiteral(" Day ")});
    Station.PressIn("cmdNewMacro");
    EXPECT_EQ(MacroNames(Station.Session.LayoutDb),
              (QStringList{Macro, Badges, QStringLiteral("Day")}));
    EXPECT_EQ(Station.Selected(), QStringLiteral("Day"));
    EXPECT_EQ(Station.Marked(), QString());
    Station.Mark(2, true);
    Station.PressIn("cmdSave");
    EXPECT_EQ(Station.Session.Settings.ActiveMacro, QStringLiteral("Day"));
    EXPECT_EQ(Station.ChainOf(3), QStringLiteral("C"));
}

TEST_F(MacroTools, AMacroIsMadeByTheKeyboardAlone)
{
    Answer({QStringLiteral("Day")});
    Station.Macros().setFocus();
    QTest::keyClick(&Station.Macros(), Qt::Key_Tab);
    EXPECT_EQ(Station.Dialog->focusWidget()->objectName(), QStringLiteral("cmdNewMacro"));
    QTest::keyClick(Station.Dialog->focusWidget(), Qt::Key_Space);
    EXPECT_EQ(Station.Selected(), QStringLiteral("Day"));
}

TEST_F(MacroTools, ANameThatIsTakenOrTooLongIsToldAndAskedForAgain)
{
    const QString tooLong(256, u'x');
    Answer({Badges, tooLong, QStringLiteral("Day's"), QStringLiteral("Disable Macro Processing")});
    Station.PressIn("cmdNewMacro");
    EXPECT_EQ(Station.Operator.CriticalBoxes.size(), 4);
    EXPECT_TRUE(Station.Operator.CriticalBoxes.first().contains(
        QStringLiteral("There is a macro named Badges already.")));
    // What was typed stands there again.
    EXPECT_EQ(Station.Operator.InputBoxes[1],
              QStringLiteral("New Macro|Name of the new macro|Badges"));
    EXPECT_EQ(MacroNames(Station.Session.LayoutDb).size(), 2);
    EXPECT_EQ(Station.Selected(), Macro);
}

TEST_F(MacroTools, TheActiveMacroStaysActiveUnderItsNewName)
{
    Answer({QStringLiteral("Both sides")});
    Station.PressIn("cmdRenameMacro");
    EXPECT_EQ(Station.Operator.InputBoxes.first(),
              QStringLiteral("Rename Macro|New name of the macro|Card and carrier"));
    EXPECT_EQ(Station.Session.Settings.ActiveMacro, QStringLiteral("Both sides"));
    EXPECT_EQ(Station.Selected(), QStringLiteral("Both sides"));
    EXPECT_EQ(Station.ChainOf(1), QStringLiteral("BGoneA"));
}

TEST_F(MacroTools, AMacroIsRemovedOnYesOnly)
{
    Station.PressIn("cmdRemoveMacro");
    EXPECT_EQ(MacroNames(Station.Session.LayoutDb).size(), 2);
    EXPECT_EQ(Station.Operator.MessageButtons, std::vector{AppMessageButtons::NoYes});
    EXPECT_EQ(Station.Operator.AppMessages.first(),
              QStringLiteral("Remove Macro?|Remove the macro (Card and carrier)?\r\nIt names 3 "
                             "layouts, which stay.\r\nIt is the active macro: records will print "
                             "on the open layout only."));
    Station.Operator.Answers = {true};
    Station.PressIn("cmdRemoveMacro");
    EXPECT_EQ(MacroNames(Station.Session.LayoutDb), QStringList{Badges});
    EXPECT_EQ(Station.Session.Settings.ActiveMacro, QString());
    EXPECT_EQ(Station.Selected(), Disable);
    EXPECT_EQ(Station.ChainOf(1), QString());
}

TEST_F(MacroTools, TheRowThatTurnsMacrosOffIsNeitherRenamedNorRemoved)
{
    Station.Select(2);
    for (const char* name : {"cmdRenameMacro", "cmdRemoveMacro"})
        EXPECT_FALSE(Station.Named<QAbstractButton>(*Station.Dialog, name).isEnabled()) << name;
    Station.Select(0);
    EXPECT_TRUE(Station.Named<QAbstractButton>(*Station.Dialog, "cmdRemoveMacro").isEnabled());
}

TEST_F(MacroTools, ALayoutThatIsGoneIsShownAsSuchAndKeptUnlessItsMarkIsTaken)
{
    ASSERT_EQ(Station.Layouts().count(), 4);
    EXPECT_EQ(Station.Layouts().item(3)->text(), QStringLiteral("Gone (gone)"));
    EXPECT_EQ(Station.Layouts().item(3)->checkState(), Qt::Checked);
    Station.Select(1);
    EXPECT_EQ(Station.Layouts().count(), 3);
    Station.Select(0);
    Station.PressIn("cmdSave");
    EXPECT_EQ(Station.ChainOf(1), QStringLiteral("ABGone"));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    Station.Open();
    Station.Mark(3, false);
    Station.PressIn("cmdSave");
    EXPECT_EQ(Station.ChainOf(1), QStringLiteral("AB"));
}

TEST_F(MacroTools, BecomingActiveAgainKeepsWhatIsSelected)
{
    Station.Select(1);
    QEvent active(QEvent::WindowActivate);
    QCoreApplication::sendEvent(Station.Dialog, &active);
    EXPECT_EQ(Station.Selected(), Badges);
}

TEST(MacroWindow, OpensWithoutADatabase)
{
    MacroWindow station;
    station.Session.LayoutDb.Close();
    station.Open();
    EXPECT_EQ(station.Layouts().count(), 0);
    EXPECT_EQ(station.MacroTexts(), QStringList(QStringLiteral("0|Disable Macro Processing")));
}

} // namespace vantrel::test
