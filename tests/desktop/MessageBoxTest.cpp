#include "desktop/DesktopStation.h"
#include "desktop/composers/frmEncoding.h"
#include "desktop/controls/DesktopControls.h"
#include "desktop/window/DesktopOperator.h"
#include "desktop/window/frmMessage.h"
#include "support/Events.h"
#include <QApplication>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QWindow>
#include <functional>
#include <gtest/gtest.h>
#include <utility>

namespace vantrel::test {
namespace {

/// Runs a routine on the box that opens next.
template <typename Use>
void WithNextBox(Use use)
{
    QTimer::singleShot(0, [use] {
        QWidget* box = QApplication::activeModalWidget();
        ASSERT_NE(box, nullptr);
        use(*box);
    });
}

void SendKey(QWidget& box, int key)
{
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(&box, &press);
}

QPushButton& Button(QWidget& box, const char* name)
{
    return DesktopStation::Named<QPushButton>(box, name);
}

TEST(MessageBox, AsksYesOrNo)
{
    DesktopOperator desk;
    WithNextBox([](QWidget& box) {
        EXPECT_EQ(box.windowTitle(), QStringLiteral("Sure?"));
        EXPECT_TRUE(box.isModal());
        EXPECT_EQ(DesktopStation::Named<QLabel>(box, "lblOut").text(), QStringLiteral("<i>A</i>"));
        EXPECT_EQ(DesktopStation::Named<QLabel>(box, "lblOut").textFormat(), Qt::PlainText);
        EXPECT_EQ(Button(box, "cmdOk").text(), QStringLiteral("&Yes"));
        EXPECT_EQ(Button(box, "cmdNo").text(), QStringLiteral("&No"));
        EXPECT_TRUE(Button(box, "cmdNo").isVisible());
        Button(box, "cmdOk").click();
    });
    EXPECT_TRUE(desk.ShowAppMessage(QStringLiteral("<i>A</i>"), QStringLiteral("Sure?"),
                                    AppMessageButtons::YesNo));
    WithNextBox([](QWidget& box) { Button(box, "cmdNo").click(); });
    EXPECT_FALSE(desk.ShowAppMessage(QStringLiteral("A"), QString(), AppMessageButtons::YesNo));
}

TEST(MessageBox, WithoutANoButtonTheOtherReadsOk)
{
    DesktopOperator desk;
    WithNextBox([](QWidget& box) {
        EXPECT_EQ(Button(box, "cmdOk").text(), QStringLiteral("&Ok"));
        EXPECT_FALSE(Button(box, "cmdNo").isVisible());
        Button(box, "cmdOk").click();
    });
    EXPECT_TRUE(desk.ShowAppMessage(QStringLiteral("Done"), QString(), AppMessageButtons::OkOnly));
}

TEST(MessageBox, EscapeAnswersNoAndNeverOk)
{
    DesktopOperator desk;
    WithNextBox([](QWidget& box) { SendKey(box, Qt::Key_Escape); });
    EXPECT_FALSE(desk.ShowAppMessage(QStringLiteral("A"), QString(), AppMessageButtons::YesNo));
    WithNextBox([](QWidget& box) {
        SendKey(box, Qt::Key_Escape);
        EXPECT_TRUE(box.isVisible());
        SendKey(box, Qt::Key_Return);
    });
    EXPECT_TRUE(desk.ShowAppMessage(QStringLiteral("A"), QString(), AppMessageButtons::OkOnly));
}

TEST(MessageBox, EnterAnswersYesUnlessNoIsTheDefault)
{
    DesktopOperator desk;
    const auto enter = [](QWidget& box) { SendKey(*box.focusWidget(), Qt::Key_Return); };
    WithNextBox(enter);
    EXPECT_TRUE(desk.ShowAppMessage(QStringLiteral("A"), QString(), AppMessageButtons::YesNo));
    WithNextBox([&](QWidget& box) {
        EXPECT_TRUE(Button(box, "cmdNo").isDefault());
        EXPECT_FALSE(Button(box, "cmdOk").isDefault());
        EXPECT_EQ(box.focusWidget(), &Button(box, "cmdNo"));
        enter(box);
    });
    EXPECT_FALSE(desk.ShowAppMessage(QStringLiteral("A"), QString(), AppMessageButtons::NoYes));
    WithNextBox([](QWidget& box) { SendKey(box, Qt::Key_Return); });
    EXPECT_FALSE(desk.ShowAppMessage(QStringLiteral("A"), QString(), AppMessageButtons::NoYes));
    WithNextBox([](QWidget& box) { Button(box, "cmdOk").click(); });
    EXPECT_TRUE(desk.ShowAppMessage(QStringLiteral("A"), QString(), AppMessageButtons::NoYes));
}

TEST(MessageBox, HasNoCloseCommand)
{
    frmMessage box(QStringLiteral("A"), QString(), AppMessageButtons::YesNo, nullptr);
    EXPECT_FALSE(box.windowFlags().testFlag(Qt::WindowCloseButtonHint));
    box.show();
    EXPECT_FALSE(box.close());
    EXPECT_TRUE(box.isVisible());
}

TEST(MessageBox, IsPlacedInTheMiddleOfTheMainWindow)
{
    DesktopStation station;
    station.Load();
    frmMessage box(QStringLiteral("Are you sure?"), QStringLiteral("Sure?"),
                   AppMessageButtons::YesNo, &station.Window);
    box.show();
    // The frame that a window manager puts around a window is unknown until the window is shown.
    constexpr int FrameAllowance = 10;
    const QPoint off = box.geometry().center() - station.Window.frameGeometry().center();
    EXPECT_LE(off.manhattanLength(), FrameAllowance);
}

/// All commands that open a box; none changes anything where the answer is No.
const std::pair<const char*, std::function<void(DesktopOperator&)>> Boxes[] = {
    {"app message",
     [](DesktopOperator& desk) {
         desk.ShowAppMessage(QStringLiteral("A"), {}, AppMessageButtons::YesNo);
     }},
    {"box",
     [](DesktopOperator& desk) {
         desk.MessageBox(QStringLiteral("A"), QStringLiteral("B"), BoxIcon::None);
     }},
    {"question",
     [](DesktopOperator& desk) { desk.AskYesNo(QStringLiteral("A"), QStringLiteral("B")); }},
    {"question with cancel",
     [](DesktopOperator& desk) { desk.AskYesNoCancel(QStringLiteral("A"), QStringLiteral("B")); }},
    {"input", [](DesktopOperator& desk) { desk.InputBox(QStringLiteral("A"), {}, {}); }},
    {"font", [](DesktopOperator& desk) { desk.AskFont({}); }},
    {"color", [](DesktopOperator& desk) { desk.AskColor(0); }},
};

TEST(MessageBox, BelongsToTheWindowItComesFrom)
{
    DesktopStation station;
    station.WithLayout();
    station.Load();
    DesktopOperator desk;
    desk.SetMainWindow(&station.Window);
    const auto ownerOfNext = [&](const auto& ask) {
        const QWindow* owner = nullptr;
        WithNextBox([&](QWidget& box) {
            owner = box.windowHandle()->transientParent();
            // The window that owns a box lives longer than any box.
            EXPECT_EQ(box.parentWidget(), &station.Window);
            static_cast<QDialog&>(box).done(QDialog::Rejected);
        });
        ask(desk);
        return owner;
    };
    station.Window.activateWindow();
    for (const auto& [name, ask] : Boxes)
        EXPECT_EQ(ownerOfNext(ask), station.Window.windowHandle()) << name;
    auto& composer = OpenDialog<frmEncoding>(station.Session, &station.Window);
    for (const auto& [name, ask] : Boxes) {
        composer.activateWindow();
        ASSERT_TRUE(EventsUntil([&] { return composer.isActiveWindow(); }));
        EXPECT_EQ(ownerOfNext(ask), composer.windowHandle()) << name;
    }
}

TEST(MessageBox, OutlivesTheWindowItComesFrom)
{
    DesktopStation station;
    station.WithLayout();
    station.Load();
    DesktopOperator desk;
    desk.SetMainWindow(&station.Window);
    auto& composer = OpenDialog<frmEncoding>(station.Session, &station.Window);
    ASSERT_TRUE(EventsUntil([&] { return composer.isActiveWindow(); }));
    WithNextBox([&](QWidget& box) {
        delete &composer;
        EXPECT_TRUE(box.isVisible());
        Button(box, "cmdOk").click();
    });
    EXPECT_TRUE(desk.ShowAppMessage(QStringLiteral("A"), {}, AppMessageButtons::YesNo));
}

/// The label that has a message.
QLabel& TextOf(QWidget& box)
{
    return DesktopStation::Named<QLabel>(box, "lblOut");
}

TEST(MessageBox, ALongNameWithoutBlanksGoesOnInTheNextLine)
{
    const QString name(400, QLatin1Char('W'));
    frmMessage box(QStringLiteral("Delete the layout named (") + name + QStringLiteral(") ?"),
                   QStringLiteral("Really Delete?"), AppMessageButtons::YesNo, nullptr);
    box.show();
    QLabel& out = TextOf(box);
    const QFontMetrics metrics(out.font());
    const int lines = metrics.horizontalAdvance(name) / out.width() + 1;
    EXPECT_GE(out.height(), lines * metrics.height());
    EXPECT_LE(out.geometry().right(), box.contentsRect().right());
    EXPECT_TRUE(out.text().contains(name));
    // Every character of the name is drawn: each line has as much ink as the characters that fit
    // into it.
    const QImage seen = out.grab().toImage();
    const QRgb ground = seen.pixel(seen.width() - 1, seen.height() - 1);
    const int side = metrics.horizontalAdvance(QLatin1Char('W'));
    int drawn = 0;
    for (int top = 0; top + metrics.height() <= seen.height(); top += metrics.height()) {
        int columns = 0;
        for (int x = 0; x < seen.width(); ++x) {
            bool ink = false;
            for (int y = top; y < top + metrics.height(); ++y)
                ink = ink || seen.pixel(x, y) != ground;
            columns += ink ? 1 : 0;
        }
        drawn += columns;
    }
    EXPECT_GE(drawn, name.size() * (side - 2));
}

TEST(MessageBox, ATextOfManyLinesLeavesItsButtonsOnTheScreen)
{
    const QString text = QString(5000, QLatin1Char('W')) + QString(1 << 20, QLatin1Char('\n'));
    frmMessage box(text, QStringLiteral("Really Delete?"), AppMessageButtons::YesNo, nullptr);
    box.show();
    EXPECT_EQ(TextOf(box).text(), ShownLine(text));
    EXPECT_LE(box.height(), 600);
}

TEST(MessageBox, WithoutATitleItsTitleBarIsBlank)
{
    DesktopOperator desk;
    // A desktop shows the name of the program's file for a title without any character.
    const auto expectBlank = [](QWidget& box) {
        EXPECT_EQ(box.windowTitle(), QStringLiteral(" "));
        static_cast<QDialog&>(box).reject();
    };
    WithNextBox(expectBlank);
    desk.InputBox(QStringLiteral("Please enter the text you wish to display"), QString(), {});
    WithNextBox(expectBlank);
    desk.ShowAppMessage(QStringLiteral("A"), QString(), AppMessageButtons::YesNo);
    WithNextBox(expectBlank);
    desk.MessageBox(QStringLiteral("A"), QString(), BoxIcon::Critical);
}

TEST(MessageBox, AnInputBoxHasRoomForItsTitle)
{
    DesktopOperator desk;
    const QString words = QStringLiteral("Enter a new value");
    WithNextBox([&](QWidget& box) {
        EXPECT_EQ(box.windowTitle(), words);
        EXPECT_GE(box.width(), WidthForTitle(words));
        static_cast<QDialog&>(box).reject();
    });
    desk.InputBox(words, words, {});
}

TEST(MessageBox, PlainBoxesShowTheirTextAsItStands)
{
    DesktopOperator desk;
    WithNextBox([](QWidget& box) {
        auto& plain = dynamic_cast<QMessageBox&>(box);
        EXPECT_EQ(plain.text(), QStringLiteral("no <such> table"));
        EXPECT_EQ(plain.textFormat(), Qt::PlainText);
        EXPECT_EQ(plain.icon(), QMessageBox::Critical);
        plain.button(QMessageBox::Ok)->click();
    });
    desk.MessageBox(QStringLiteral("no <such> table"), QStringLiteral("13"), BoxIcon::Critical);
}

TEST(MessageBox, APlainQuestionStaysOnTop)
{
    DesktopOperator desk;
    for (const bool yes : {true, false}) {
        WithNextBox([yes](QWidget& box) {
            auto& plain = dynamic_cast<QMessageBox&>(box);
            EXPECT_TRUE(plain.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
            plain.button(yes ? QMessageBox::Yes : QMessageBox::No)->click();
        });
        EXPECT_EQ(desk.AskYesNo(QStringLiteral("Now?"), QStringLiteral("Take Picture")), yes);
    }
}

TEST(BusyPointer, IsTheHourglassWhileACardPrints)
{
    DesktopOperator desk;
    desk.ShowBusyPointer(true);
    desk.ShowBusyPointer(true);
    ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    desk.ShowBusyPointer(false);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    desk.ShowBusyPointer(false);
}

TEST(LetEventsRun, DeliversWhatIsWaiting)
{
    DesktopOperator desk;
    bool delivered = false;
    QTimer::singleShot(0, [&] { delivered = true; });
    desk.LetEventsRun();
    EXPECT_TRUE(delivered);
}

} // namespace
} // namespace vantrel::test
