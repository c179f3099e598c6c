#include "desktop/EveryWindow.h"
#include "desktop/window/DesktopOperator.h"
#include <QApplication>
#include <QDialog>
#include <QPixmapCache>
#include <QPointer>
#include <QTimer>
#include <gtest/gtest.h>
#include <malloc.h>

// Windows that an operator opens and closes all day leave nothing behind.

namespace vantrel::test {
namespace {

constexpr int Openings = 200;
/// The first windows load resources that every later one uses.
constexpr int Settling = 20;
/// Room for small caches that still grow; dialogs that were not deleted would take many times that.
constexpr std::size_t HeapRoom = 256UL * 1024UL;

struct Held
{
    qsizetype Widgets;
    qsizetype OfMainWindow;
    std::size_t HeapBytes;
};

Held HeldNow(const QWidget& mainWindow)
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return {QApplication::allWidgets().size(), mainWindow.findChildren<QObject*>().size(),
            ::mallinfo2().uordblks};
}

void ExpectNothingStays(const QWidget& mainWindow, const std::function<void()>& openAndClose)
{
    // Qt's cache of pictures grows to a limit of its own.
    QPixmapCache::setCacheLimit(0);
    for (int opening = 0; opening < Settling; ++opening)
        openAndClose();
    const Held before = HeldNow(mainWindow);
    for (int opening = 0; opening < Openings; ++opening)
        openAndClose();
    const Held after = HeldNow(mainWindow);
    EXPECT_EQ(after.Widgets, before.Widgets);
    EXPECT_EQ(after.OfMainWindow, before.OfMainWindow);
    EXPECT_LE(after.HeapBytes, before.HeapBytes + HeapRoom);
}

class WindowFlood : public ::testing::TestWithParam<WindowRow>
{
protected:
    FullStation Station;
};

TEST_P(WindowFlood, LeavesNothingBehind)
{
    ExpectNothingStays(Station.Window, [&] {
        const QPointer<QWidget> window = &GetParam().Open(Station);
        QCoreApplication::processEvents();
        EXPECT_TRUE(window->isVisible());
        // A message box has to be answered.
        if (!window->close())
            dynamic_cast<QDialog&>(*window).accept();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        // Windows that their callers hold are freed by the callers.
        if (window && !window->isVisible())
            delete window;
        EXPECT_TRUE(window.isNull());
    });
}

INSTANTIATE_TEST_SUITE_P(Every, WindowFlood,
                         ::testing::ValuesIn(EveryWindow().begin() + 1, EveryWindow().end()),
                         NameOfWindow);

struct Question
{
    const char* Name;
    void (*Ask)(DesktopOperator& desk);
};

constexpr Question Questions[] = {
    {"ShowAppMessage",
     [](DesktopOperator& desk) {
         desk.ShowAppMessage(QStringLiteral("Sure?"), QStringLiteral("Delete"),
                             AppMessageButtons::YesNo);
     }},
    {"MessageBox",
     [](DesktopOperator& desk) {
         desk.MessageBox(QStringLiteral("No."), QStringLiteral("Delete"), BoxIcon::Critical);
     }},
    {"AskYesNo",
     [](DesktopOperator& desk) {
         desk.AskYesNo(QStringLiteral("Sure?"), QStringLiteral("Delete"));
     }},
    {"AskYesNoCancel",
     [](DesktopOperator& desk) {
         desk.AskYesNoCancel(QStringLiteral("Sure?"), QStringLiteral("Delete"));
     }},
    {"InputBox",
     [](DesktopOperator& desk) {
         desk.InputBox(QStringLiteral("Name"), QStringLiteral("New"), QStringLiteral("Badge"));
     }},
    {"AskFont", [](DesktopOperator& desk) { desk.AskFont({}); }},
    {"AskColor", [](DesktopOperator& desk) { desk.AskColor(0); }},
};

class QuestionFlood : public ::testing::TestWithParam<Question>
{
protected:
    FullStation Station;
    DesktopOperator Desk;
};

TEST_P(QuestionFlood, LeavesNothingBehind)
{
    Desk.SetMainWindow(&Station.Window);
    int closed = 0;
    ExpectNothingStays(Station.Window, [&] {
        QTimer::singleShot(0, &Station.Window, [&] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            dialog->reject();
            ++closed;
        });
        GetParam().Ask(Desk);
    });
    EXPECT_EQ(closed, Settling + Openings);
}

INSTANTIATE_TEST_SUITE_P(Every, QuestionFlood, ::testing::ValuesIn(Questions),
                         [](const auto& question) { return question.param.Name; });

} // namespace
} // namespace vantrel::test
