#include "road/AccessBus.h"
#include "road/StationProcess.h"
#include "support/Events.h"
#include "support/TestSession.h"
#include <QDBusConnectionInterface>
#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusVariant>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

const QString WatcherName = QStringLiteral("org.kde.StatusNotifierWatcher");

/// The part of a desktop that programs tell of their notification icons.
class TrayWatcher : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ HasHost CONSTANT)

public:
    explicit TrayWatcher(const QString& address)
        : m_bus(QDBusConnection::connectToBus(address, WatcherName))
    {
        EXPECT_TRUE(m_bus.registerObject(QStringLiteral("/StatusNotifierWatcher"), this,
                                         QDBusConnection::ExportAllContents));
        EXPECT_TRUE(m_bus.registerService(WatcherName));
    }
    ~TrayWatcher() override { QDBusConnection::disconnectFromBus(WatcherName); }
    TrayWatcher(const TrayWatcher&) = delete;
    TrayWatcher& operator=(const TrayWatcher&) = delete;

    static bool HasHost() { return true; }
    bool HasItem() const { return !m_item.isEmpty(); }
    QString TitleOfItem() const
    {
        auto call = QDBusMessage::createMethodCall(
            m_item, QStringLiteral("/StatusNotifierItem"),
            QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
        call << QStringLiteral("org.kde.StatusNotifierItem") << QStringLiteral("Title");
        return m_bus.call(call).arguments().value(0).value<QDBusVariant>().variant().toString();
    }

public Q_SLOTS:
    void RegisterStatusNotifierItem(const QString& /*service*/) { m_item = message().service(); }

private:
    QDBusConnection m_bus;
    QString m_item;
};

TEST(TrayItem, HasTheNameOfTheProgramForItsTitle)
{
    const AccessBus bus;
    const TrayWatcher desktop(bus.Environment().value(QStringLiteral("DBUS_SESSION_BUS_ADDRESS")));
    TestSession folder{{QStringLiteral("Vantrel PDF")}};
    folder.WithDatabase();
    const StationProcess station(folder.Session.ProgramFolder,
                                 StationStart{.Environment = bus.Environment()});
    ASSERT_TRUE(EventsUntil([&] { return desktop.HasItem(); }));
    EXPECT_EQ(desktop.TitleOfItem(), QStringLiteral("Vantrel"));
}

} // namespace
} // namespace vantrel::test

#include "TrayItemTest.moc"
