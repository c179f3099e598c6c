#include "desktop/EveryWindow.h"
#include "support/Events.h"
#include <QApplication>
#include <QDialog>
#include <QListWidget>
#include <QTest>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

/// An operator without a mouse.
class KeyboardUse : public ::testing::Test
{
protected:
    void Open(const char* name)
    {
        const auto windows = EveryWindow();
        const auto row = std::ranges::find_if(
            windows, [&](const WindowRow& each) { return qstrcmp(each.Name, name) == 0; });
        Window = &OpenActive(*row, Station);
    }
    static void Press(Qt::Key key, Qt::KeyboardModifiers with = Qt::NoModifier)
    {
        QTest::keyClick(QApplication::focusWindow(), key, with);
        QCoreApplication::processEvents();
    }
    static void Type(const char* text)
    {
        QTest::keyClicks(QApplication::focusWidget(), QLatin1StringView(text));
    }
    /// Presses Tab until the control has the focus.
    void TabTo(const char* name)
    {
        const auto has = [&] {
            const QWidget* focus = QApplication::focusWidget();
            return focus != nullptr && focus->objectName() == QLatin1StringView(name);
        };
        for (int press = 0; press < 40 && !has(); ++press)
            Press(Qt::Key_Tab);
        EXPECT_TRUE(has()) << name;
    }
    /// A timer of the wizard checks whether its page is complete.
    void WaitForNext()
    {
        const auto& next = DesktopStation::Named<QAbstractButton>(*Window, "cmdNext");
        EXPECT_TRUE(EventsUntil([&] { return next.isEnabled(); }));
    }
    bool IsClosed() const { return Window.isNull() || !Window->isVisible(); }

    FullStation Station;
    QPointer<QWidget> Window;
};

TEST_F(KeyboardUse, ChoosesALayoutAndOpensIt)
{
    Station.Choose("cmdClose");
    EXPECT_TRUE(Station.Session.CurrentLayoutName.isEmpty());
    Open("frmGetLayout");
    Press(Qt::Key_Space);
    Press(Qt::Key_Return);
    EXPECT_TRUE(IsClosed());
    EXPECT_EQ(Station.Session.CurrentLayoutName, QStringLiteral("Badge"));
}

TEST_F(KeyboardUse, AnArrowKeyChoosesTheOnlyLayout)
{
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_Home, Qt::Key_End}) {
        // The menus follow an opened layout at the next tick of their timer.
        EXPECT_TRUE(EventsUntil([&] { return Station.Get<QAction>("cmdClose").isEnabled(); }));
        Station.Choose("cmdClose");
        Open("frmGetLayout");
        auto& layouts = DesktopStation::Named<QListWidget>(*Window, "lstLayouts");
        while (layouts.count() > 1)
            delete layouts.takeItem(1);
        EXPECT_TRUE(layouts.selectedItems().isEmpty());
        Press(key);
        EXPECT_EQ(layouts.selectedItems().size(), 1) << key;
        Press(Qt::Key_Return);
        EXPECT_TRUE(IsClosed());
        EXPECT_EQ(Station.Session.CurrentLayoutName, QStringLiteral("Badge")) << key;
    }
}

TEST_F(KeyboardUse, ArrowKeysGoOnFromTheChosenLine)
{
    Open("frmGetLayout");
    auto& layouts = DesktopStation::Named<QListWidget>(*Window, "lstLayouts");
    layouts.addItems({QStringLiteral("x"), QStringLiteral("y")});
    Press(Qt::Key_Down);
    EXPECT_EQ(layouts.selectedItems().value(0), layouts.item(0));
    Press(Qt::Key_Down);
    EXPECT_EQ(layouts.selectedItems().value(0), layouts.item(1));
    Press(Qt::Key_Up);
    EXPECT_EQ(layouts.selectedItems().value(0), layouts.item(0));
    Press(Qt::Key_Escape);
}

TEST_F(KeyboardUse, SetsDelimitersAndTicksAFilter)
{
    Open("frmToolbar");
    Type("<");
    Press(Qt::Key_Tab);
    Type(";");
    Press(Qt::Key_Tab);
    Type(">");
    TabTo("chkBuffer");
    Press(Qt::Key_Space);
    TabTo("lstFilters");
    Press(Qt::Key_Down);
    Press(Qt::Key_Space);
    Press(Qt::Key_Return);
    EXPECT_TRUE(IsClosed());
    const StationSettings& settings = Station.Session.Settings;
    EXPECT_EQ(settings.Framing.DataStart, QStringLiteral("<"));
    EXPECT_EQ(settings.Framing.DataSeperator, QStringLiteral(";"));
    EXPECT_EQ(settings.Framing.DataEnd, QStringLiteral(">"));
    EXPECT_TRUE(settings.BufferData);
    EXPECT_TRUE(settings.Filters.Lf);
}

TEST_F(KeyboardUse, SetsUpASerialPort)
{
    Open("frmCommSettings");
    Press(Qt::Key_Tab, Qt::ControlModifier);
    TabTo("lstPorts");
    Press(Qt::Key_Home);
    Press(Qt::Key_Down);
    Press(Qt::Key_Space);
    TabTo("cbxParity");
    Press(Qt::Key_Home);
    Press(Qt::Key_Down);
    const QString before = Station.Session.Settings.SSettings;
    Press(Qt::Key_Return);
    EXPECT_TRUE(IsClosed());
    EXPECT_EQ(Station.Session.Settings.SPort, 2);
    EXPECT_NE(Station.Session.Settings.SSettings, before);
}

TEST_F(KeyboardUse, ChoosesAMacroAndItsLayouts)
{
    Open("frmMacro");
    TabTo("lstMacros");
    Press(Qt::Key_Home);
    TabTo("lstLayouts");
    Press(Qt::Key_Home);
    Press(Qt::Key_Space);
    Press(Qt::Key_Return);
    EXPECT_TRUE(IsClosed());
    EXPECT_EQ(Station.Session.Settings.ActiveMacro, QStringLiteral("Both sides"));
}

TEST_F(KeyboardUse, ChoosesThePrinterItsOrientationAndItsCopies)
{
    Open("frmPrinters2");
    TabTo("lvwPrinters");
    Press(Qt::Key_Home);
    Press(Qt::Key_Down);
    TabTo("udCopies");
    Press(Qt::Key_Up);
    TabTo("chdForceResize");
    // Back to the option buttons, where the arrow keys choose another one.
    Press(Qt::Key_Tab, Qt::ShiftModifier);
    Press(Qt::Key_Tab, Qt::ShiftModifier);
    const int before = Station.Session.CurrentParams.PrinterOrientation;
    Press(Qt::Key_Down);
    Press(Qt::Key_Return);
    EXPECT_TRUE(IsClosed());
    EXPECT_EQ(Station.Session.CurrentParams.PrinterDevice, QStringLiteral("Front Desk"));
    EXPECT_EQ(Station.Session.CurrentParams.PrinterCopies, 2);
    EXPECT_NE(Station.Session.CurrentParams.PrinterOrientation, before);
}

TEST_F(KeyboardUse, ComposesATrack)
{
    Open("frmEncoding");
    Press(Qt::Key_2, Qt::AltModifier);
    Press(Qt::Key_E, Qt::AltModifier);
    Press(Qt::Key_End);
    Press(Qt::Key_Return);
    Press(Qt::Key_S, Qt::AltModifier);
    EXPECT_TRUE(EventsUntil([&] { return IsClosed(); }));
    EXPECT_EQ(Station.Session.CurrentParams.Track2, QStringLiteral("DAT2"));
}

TEST_F(KeyboardUse, PutsAnElementIntoTheStreamAndTakesItOut)
{
    Open("frmSerialize");
    Press(Qt::Key_E, Qt::AltModifier);
    Press(Qt::Key_End);
    Press(Qt::Key_Return);
    EXPECT_NE(Window->findChild<QWidget*>(QStringLiteral("T1Element(1)")), nullptr);
    TabTo("OStream");
    Press(Qt::Key_Right);
    Press(Qt::Key_Delete);
    EXPECT_EQ(Window->findChild<QWidget*>(QStringLiteral("T1Element(1)")), nullptr);
}

TEST_F(KeyboardUse, GoesThroughTheWizard)
{
    Open("frmWizard");
    Type("Pass");
    WaitForNext();
    Press(Qt::Key_Return);
    Press(Qt::Key_Return);
    TabTo("imgL");
    Press(Qt::Key_Space);
    WaitForNext();
    Press(Qt::Key_Return);
    TabTo("lstPrinters");
    Press(Qt::Key_Space);
    WaitForNext();
    Press(Qt::Key_Return);
    TabTo("chkEnableFields");
    Press(Qt::Key_Space);
    TabTo("udFields");
    Press(Qt::Key_Up);
    Press(Qt::Key_Return);
    Press(Qt::Key_Return);
    EXPECT_TRUE(EventsUntil([&] { return IsClosed(); }));
    EXPECT_EQ(Station.Session.CurrentLayoutName, QStringLiteral("Pass"));
    EXPECT_NE(Station.Session.Document.Find(Family::lbl_DATA, 1), nullptr);
}

TEST_F(KeyboardUse, AnswersAQuestion)
{
    using Keys = std::vector<std::pair<Qt::Key, Qt::KeyboardModifier>>;
    const std::pair<Keys, int> rows[] = {
        {{{Qt::Key_Return, Qt::NoModifier}}, QDialog::Accepted},
        {{{Qt::Key_Right, Qt::NoModifier}, {Qt::Key_Return, Qt::NoModifier}}, QDialog::Rejected},
        {{{Qt::Key_Tab, Qt::NoModifier}, {Qt::Key_Space, Qt::NoModifier}}, QDialog::Rejected},
        {{{Qt::Key_Y, Qt::AltModifier}}, QDialog::Accepted},
        {{{Qt::Key_N, Qt::AltModifier}}, QDialog::Rejected},
        {{{Qt::Key_Escape, Qt::NoModifier}}, QDialog::Rejected}};
    for (const auto& [keys, expected] : rows) {
        Open("frmMessageYesNo");
        for (const auto& [key, with] : keys)
            Press(key, with);
        EXPECT_TRUE(EventsUntil([&] { return IsClosed(); })) << keys.front().first;
        EXPECT_EQ(qobject_cast<QDialog*>(Window)->result(), expected) << keys.front().first;
    }
}

TEST_F(KeyboardUse, ReachesTheNavigatorAndMakesAPage)
{
    Open("frmMain");
    TabTo("cmdNewPage");
    Press(Qt::Key_Space);
    EXPECT_TRUE(EventsUntil([&] { return Station.Session.CurrentParams.PageIndex == 2; }));
}

} // namespace
} // namespace vantrel::test
