#include "desktop/DesktopStation.h"
#include "desktop/controls/DesktopUpDown.h"
#include "desktop/controls/ScreenUnits.h"
#include "desktop/dialogs/frmForms.h"
#include "desktop/dialogs/frmSendData.h"
#include "station/layout/LoadLayout.h"
#include "support/Events.h"
#include "support/Layouts.h"
#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QToolButton>
#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

/// A station whose layout "Badge" prints by itself, with one of the two dialogs open.
template <typename Dialog>
class StationWithDialog : public DesktopStation
{
public:
    explicit StationWithDialog(const char* command)
    {
        WithLayout();
        Session.CurrentParams.AutoSpool = true;
        SavePage(Session);
        EXPECT_TRUE(LoadLayout(Session, QStringLiteral("Badge")));
        Session.Settings.Framing = {QStringLiteral("<"), QStringLiteral("+"), QStringLiteral(">")};
        Load();
        Command = command;
        Printers.Operations.clear();
    }
    void Open()
    {
        Choose(Command);
        Window_ = &Get<Dialog>(Dialog::staticMetaObject.className() + sizeof("vantrel::") - 1);
    }
    template <typename Control>
    Control& On(const char* name)
    {
        return Named<Control>(*Window_, name);
    }
    void Click(const char* name)
    {
        auto& button = On<QAbstractButton>(name);
        EXPECT_TRUE(button.isEnabled()) << name;
        button.click();
    }
    QStringList Printed() const
    {
        QStringList printed;
        for (const QString& operation : Printers.Operations) {
            if (operation.startsWith(QStringLiteral("Print(\"")) &&
                !operation.contains(QStringLiteral("Visitor")) &&
                operation != QStringLiteral("Print(\" \")"))
                printed += operation;
        }
        return printed;
    }

    const char* Command;
    QPointer<Dialog> Window_;
};

class SequenceWindow : public StationWithDialog<frmSendData>
{
public:
    SequenceWindow() : StationWithDialog("cmdGenSerial") { Open(); }
};

TEST(SequenceWindow, ShowsItsFieldsReady)
{
    SequenceWindow window;
    EXPECT_EQ(window.Window_->windowTitle(), QStringLiteral("Card Number Sequence Generator"));
    EXPECT_EQ(window.On<QLabel>("lblOut").text(), QStringLiteral("Ready"));
    EXPECT_FALSE(window.On<QRadioButton>("rdoType(0)").isEnabled());
    EXPECT_FALSE(window.On<QRadioButton>("rdoType(1)").isEnabled());
}

TEST(SequenceWindow, TheCheckDigitBoxEnablesAndDisablesItsSchemes)
{
    SequenceWindow window;
    window.Click("chkGenCheckDigit");
    EXPECT_TRUE(window.On<QRadioButton>("rdoType(1)").isEnabled());
    EXPECT_TRUE(window.On<QRadioButton>("rdoType(0)").isChecked());
    window.Click("rdoType(1)");
    window.Click("chkGenCheckDigit");
    EXPECT_FALSE(window.On<QRadioButton>("rdoType(0)").isEnabled());
    window.Click("chkGenCheckDigit");
    EXPECT_TRUE(window.On<QRadioButton>("rdoType(0)").isChecked());
}

TEST(SequenceWindow, PrintsTheNumbersAndIsReadyAgain)
{
    SequenceWindow window;
    window.On<QLineEdit>("txtStart").setText(QStringLiteral("1"));
    window.On<QLineEdit>("txtEnd").setText(QStringLiteral("4"));
    window.Click("chkGenCheckDigit");
    window.Click("cmdPrint");
    EXPECT_EQ(window.Printed(),
              (QStringList{QStringLiteral("Print(\"17\")"), QStringLiteral("Print(\"24\")"),
                           QStringLiteral("Print(\"31\")")}));
    EXPECT_EQ(window.On<QLabel>("lblOut").text(), QStringLiteral("Ready"));
    EXPECT_TRUE(window.On<QPushButton>("cmdPrint").isEnabled());
}

TEST(SequenceWindow, TheArrowsSetTheDigitsOfAGroup)
{
    SequenceWindow window;
    window.On<DesktopUpDown>("ccrpUpDown1").DownButton().click();
    EXPECT_EQ(window.On<QLineEdit>("txtDigitCount").text(), QStringLiteral("3"));
}

TEST(SequenceWindow, ShowsTheProgressOfTheRun)
{
    SequenceWindow window;
    window.On<QLineEdit>("txtStart").setText(QStringLiteral("1"));
    window.On<QLineEdit>("txtEnd").setText(QStringLiteral("4"));
    QStringList told;
    for (int events = 0; events < 9; ++events)
        window.Operator.WhileEventsRun.emplace_back([&] {
            told += window.On<QLabel>("lblOut").text();
            EXPECT_FALSE(window.On<QPushButton>("cmdPrint").isEnabled());
        });
    window.Click("cmdPrint");
    told.removeDuplicates();
    EXPECT_EQ(told, (QStringList{QStringLiteral("Ready"), QStringLiteral("1 of 3"),
                                 QStringLiteral("2 of 3")}));
}

TEST(SequenceWindow, ClosingItEndsTheRunAfterThePresentCard)
{
    SequenceWindow window;
    window.On<QLineEdit>("txtStart").setText(QStringLiteral("1"));
    window.On<QLineEdit>("txtEnd").setText(QStringLiteral("100"));
    window.Session.Settings.Framing.DataStart = QStringLiteral("{");
    // Events run three times for each card: with its record, its fields and its page.
    for (int events = 0; events < 3; ++events)
        window.Operator.WhileEventsRun.emplace_back([] {});
    window.Operator.WhileEventsRun.emplace_back([&] { window.Click("cmdCancel"); });
    window.Click("cmdPrint");
    EXPECT_EQ(window.Printed().size(), 2);
    EXPECT_EQ(window.Session.Settings.Framing.DataStart, QStringLiteral("{"));
    EXPECT_TRUE(EventsUntil([&] { return window.Window_.isNull(); }));
}

TEST(SequenceWindow, TheEndOfTheStationEndsTheRunAfterThePresentCard)
{
    SequenceWindow window;
    window.On<QLineEdit>("txtStart").setText(QStringLiteral("1"));
    window.On<QLineEdit>("txtEnd").setText(QStringLiteral("100"));
    window.Operator.WhileEventsRun.emplace_back([] {});
    window.Operator.WhileEventsRun.emplace_back([&] { window.Window.Unload(); });
    window.Click("cmdPrint");
    EXPECT_EQ(window.Printed(), QStringList{QStringLiteral("Print(\"1\")")});
}

TEST(SequenceWindow, TheArrowsCountOnFromTheDigitsThatWereTyped)
{
    SequenceWindow window;
    auto& digits = window.On<QLineEdit>("txtDigitCount");
    auto& arrows = window.On<DesktopUpDown>("ccrpUpDown1");
    digits.selectAll();
    QTest::keyClicks(&digits, QStringLiteral("12"));
    arrows.UpButton().click();
    EXPECT_EQ(digits.text(), QStringLiteral("13"));
    // A text that is no number leaves the arrows where they were.
    digits.selectAll();
    QTest::keyClicks(&digits, QStringLiteral("x"));
    EXPECT_EQ(digits.text(), QStringLiteral("x"));
    arrows.DownButton().click();
    EXPECT_EQ(digits.text(), QStringLiteral("12"));
}

TEST(SequenceWindow, TheArrowsCountOnFromDigitsThatAScreenReaderSet)
{
    SequenceWindow window;
    auto& digits = window.On<QLineEdit>("txtDigitCount");
    QAccessible::queryAccessibleInterface(&digits)->setText(QAccessible::Value,
                                                            QStringLiteral("12"));
    EXPECT_EQ(digits.text(), QStringLiteral("12"));
    window.On<DesktopUpDown>("ccrpUpDown1").UpButton().click();
    EXPECT_EQ(digits.text(), QStringLiteral("13"));
}

class FormsWindow : public StationWithDialog<frmForms>
{
public:
    FormsWindow() : StationWithDialog("cmdViewBuffer") {}
    void Keep(const char* record)
    {
        QString text = QLatin1StringView(record);
        BufferRecord(Session.RecordQueue, Session.Settings, text);
    }
    QStringList Lines()
    {
        QStringList lines;
        auto& list = On<QListWidget>("tvwObjects");
        for (int row = 0; row < list.count(); ++row)
            lines += list.item(row)->text();
        return lines;
    }
};

TEST(FormsWindow, ShowsTheRecordsAndTheLayouts)
{
    FormsWindow window;
    window.Keep("<Anna+7>");
    window.Open();
    EXPECT_EQ(window.Window_->windowTitle(), QStringLiteral("Document Generator"));
    EXPECT_EQ(window.Lines(), QStringList{QStringLiteral("Anna")});
    EXPECT_EQ(window.On<QLabel>("lblViewField").text(), QStringLiteral("View data field 1"));
    auto& layouts = window.On<QListWidget>("lstLayouts");
    ASSERT_EQ(layouts.count(), 1);
    EXPECT_EQ(layouts.item(0)->checkState(), Qt::Unchecked);
}

TEST(FormsWindow, FollowsTheQueueAndTheViewedField)
{
    FormsWindow window;
    window.Open();
    window.Keep("<Anna+7>");
    EXPECT_TRUE(EventsUntil([&] { return window.Lines() == QStringList{QStringLiteral("Anna")}; }));
    window.On<DesktopUpDown>("udField").UpButton().click();
    EXPECT_EQ(window.Lines(), QStringList{QStringLiteral("7")});
    EXPECT_EQ(window.On<QLabel>("lblViewField").text(), QStringLiteral("View data field 2"));
    window.On<DesktopUpDown>("udField").UpButton().click();
    EXPECT_EQ(window.On<QLabel>("lblViewField").text(), QStringLiteral("View data field 2"));
    window.On<DesktopUpDown>("udField").DownButton().click();
    EXPECT_EQ(window.Lines(), QStringList{QStringLiteral("Anna")});
    window.Click("cmdClear");
    EXPECT_EQ(window.Lines(), QStringList());
}

TEST(FormsWindow, PrintsTheChosenRecordOnTheMarkedLayouts)
{
    FormsWindow window;
    window.Keep("<Anna+7>");
    window.Keep("<Bert+8>");
    window.Open();
    window.On<QListWidget>("tvwObjects").setCurrentRow(1);
    window.On<QListWidget>("lstLayouts").item(0)->setCheckState(Qt::Checked);
    window.Click("cmdPrint");
    EXPECT_EQ(window.Printed(), QStringList{QStringLiteral("Print(\"Bert\")")});
    EXPECT_EQ(window.Session.CurrentLayoutName, QString());
    EXPECT_EQ(window.Window_->windowTitle(), QStringLiteral("  Document Generator"));
}

TEST(FormsWindow, PrintWithoutAMarkedLayoutOnlySetsTheCaption)
{
    FormsWindow window;
    window.Keep("<Anna+7>");
    window.Open();
    window.On<QListWidget>("tvwObjects").setCurrentRow(0);
    window.Click("cmdPrint");
    EXPECT_EQ(window.Printed(), QStringList());
    EXPECT_EQ(window.Session.CurrentLayoutName, QStringLiteral("Badge"));
    EXPECT_EQ(window.Window_->windowTitle(), QStringLiteral("  Document Generator"));
}

TEST(FormsWindow, IsPlaced500TwipsAboveTheCentreOfTheMainWindow)
{
    FormsWindow window;
    window.Open();
    const QPoint off = window.Window_->frameGeometry().center() -
                       window.Window.frameGeometry().center() + QPoint(0, ScreenPixels(500));
    // A main window that is not shown has no frame that could be measured.
    constexpr int frameAllowance = 2;
    EXPECT_LE(std::max(std::abs(off.x()), std::abs(off.y())), frameAllowance);
}

TEST(FormsWindow, ShowsTheBeginningOfALongValueAndPrintsTheWhole)
{
    FormsWindow window;
    const QByteArray value(20000, 'W');
    window.Keep(QByteArray('<' + value + '>').constData());
    window.Open();
    EXPECT_EQ(window.Lines(), QStringList{QString(1000, QLatin1Char('W'))});
    window.On<QListWidget>("tvwObjects").setCurrentRow(0);
    window.On<QListWidget>("lstLayouts").item(0)->setCheckState(Qt::Checked);
    window.Click("cmdPrint");
    EXPECT_EQ(window.Printed(),
              QStringList{QStringLiteral("Print(\"%1\")").arg(QLatin1StringView(value))});
}

TEST(FormsWindow, OpensWithoutADatabase)
{
    FormsWindow window;
    window.Keep("<Anna+7>");
    window.Session.LayoutDb.Close();
    window.Open();
    EXPECT_EQ(window.Lines(), QStringList{QStringLiteral("Anna")});
    EXPECT_EQ(window.On<QListWidget>("lstLayouts").count(), 0);
}

TEST(FormsWindow, ItsPrintButtonIsDisabledWhileItPrints)
{
    FormsWindow window;
    window.Keep("<Anna+7>");
    window.Open();
    window.On<QListWidget>("tvwObjects").setCurrentRow(0);
    window.On<QListWidget>("lstLayouts").item(0)->setCheckState(Qt::Checked);
    window.Operator.WhileEventsRun.emplace_back(
        [&] { EXPECT_FALSE(window.On<QPushButton>("cmdPrint").isEnabled()); });
    window.Click("cmdPrint");
    EXPECT_TRUE(window.Operator.WhileEventsRun.empty());
    EXPECT_TRUE(window.On<QPushButton>("cmdPrint").isEnabled());
}

TEST(FormsWindow, ARecordThatClosesItDoesNoHarm)
{
    FormsWindow window;
    window.Keep("<Anna+7>");
    window.Open();
    window.On<QListWidget>("tvwObjects").setCurrentRow(0);
    window.On<QListWidget>("lstLayouts").item(0)->setCheckState(Qt::Checked);
    window.Operator.WhileEventsRun.emplace_back([&] { delete window.Window_.data(); });
    auto& print = window.On<QPushButton>("cmdPrint");
    QMetaObject::invokeMethod(&print, &QPushButton::click, Qt::QueuedConnection);
    EXPECT_TRUE(EventsUntil([&] { return !window.Printed().isEmpty(); }));
    EXPECT_TRUE(window.Window_.isNull());
}

} // namespace
} // namespace vantrel::test
