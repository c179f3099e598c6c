#include "desktop/DesktopStation.h"
#include "base/Profile.h"
#include "station/session/Settings.h"
#include "support/Layouts.h"
#include <QApplication>
#include <QCloseEvent>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>
#include <qtestspontaneevent.h>

namespace vantrel::test {

namespace {

/// Ends a test that hangs; never reached by one that passes.
constexpr int HangLimitMs = 20000;
constexpr int HungExit = 99;

/// Settings of a station before its window is made.
vantrel::Session& Prepare(vantrel::Session& session, bool visible, const StationOptions& options)
{
    session.Options = options;
    session.Settings.MainVisible = visible;
    session.Settings.MTop = 300;
    session.Settings.MLeft = 450;
    session.Settings.MWidth = 10425;
    session.Settings.MHeight = 8895;
    return session;
}

} // namespace

DesktopStation::DesktopStation(bool visible, const StationOptions& options)
    : Window(Prepare(Session, visible, options))
{
    WithDatabase();
}

void DesktopStation::WithLayout(const QString& name)
{
    BeginLayout(Session, name);
    Session.CurrentParams.AutoSpool = false;
    AddText(Session, QStringLiteral("Visitor"), {300, 400, 300, 1500});
    AddField(Session, 1, {900, 400, 300, 1500});
    SavePage(Session);
    Session.Document.Show();
}

void DesktopStation::WriteStatus(const QString& key, const QString& value) const
{
    ASSERT_TRUE(WriteProfileValue(SessionStatusPath(Session.ProgramFolder), SessionSection(Session),
                                  key, value));
}

int DesktopStation::RunToEnd()
{
    QTimer hung;
    hung.setSingleShot(true);
    QObject::connect(&hung, &QTimer::timeout, [] { QCoreApplication::exit(HungExit); });
    hung.start(HangLimitMs);
    return QCoreApplication::exec();
}

void DesktopStation::Choose(const char* name)
{
    auto& action = Get<QAction>(name);
    EXPECT_TRUE(action.isEnabled()) << name;
    action.trigger();
    QCoreApplication::processEvents();
}

void DesktopStation::Press(const char* name)
{
    auto& button = Get<QAbstractButton>(name);
    EXPECT_TRUE(button.isEnabled()) << name;
    button.click();
    QCoreApplication::processEvents();
}

bool DesktopStation::CloseByWindowManager(QWidget& window)
{
    QCloseEvent event;
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(window.windowHandle(), &event);
    return event.isAccepted();
}

} // namespace vantrel::test
