#include "road/AccessBus.h"
#include "support/Events.h"
#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QFile>
#include <QProcessEnvironment>
#include <deque>
#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <utility>

namespace vantrel::test {

namespace {

constexpr int LimitMs = 20000;
const QString Registry = QStringLiteral("org.a11y.atspi.Registry");
const QString Root = QStringLiteral("/org/a11y/atspi/accessible/root");
constexpr int ActiveBit = 1;
constexpr int EnabledBit = 8;
constexpr int SelectedBit = 23;
constexpr int ShowingBit = 25;
constexpr qint64 FirstDisplay = 1000;
constexpr qint64 Displays = 50000;
constexpr std::uint32_t LabelledBy = 2;

constexpr auto BusConfiguration = R"xml(<busconfig>
  <type>session</type>
  <listen>%1</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
)xml";

void End(QProcess& process)
{
    process.terminate();
    if (!process.waitForFinished(LimitMs))
        process.kill();
}

/// Reads each structure of an array. An item may have gone meanwhile; then it is left out.
template <typename Read>
void ForEach(const QVariant& answer, Read read)
{
    if (!answer.canConvert<QDBusArgument>())
        return;
    const auto array = answer.value<QDBusArgument>();
    array.beginArray();
    while (!array.atEnd()) {
        array.beginStructure();
        read(array);
        array.endStructure();
    }
    array.endArray();
}

struct Reference
{
    QString Service;
    QDBusObjectPath Path;
};

const QDBusArgument& operator>>(const QDBusArgument& argument, Reference& reference)
{
    return argument >> reference.Service >> reference.Path;
}

} // namespace

QVariant Seen::Call(const char* method, const char* interface, const QVariantList& arguments) const
{
    auto call = QDBusMessage::createMethodCall(
        m_service, m_path, QStringLiteral("org.a11y.atspi.") + QLatin1StringView(interface),
        QLatin1StringView(method));
    call.setArguments(arguments);
    const QDBusMessage answer = m_bus.call(call, QDBus::Block, LimitMs);
    return answer.arguments().value(0);
}

QString Seen::Text(const char* property) const
{
    auto call = QDBusMessage::createMethodCall(m_service, m_path,
                                               QStringLiteral("org.freedesktop.DBus.Properties"),
                                               QStringLiteral("Get"));
    call << QStringLiteral("org.a11y.atspi.Accessible") << QLatin1StringView(property);
    const QDBusMessage answer = m_bus.call(call, QDBus::Block, LimitMs);
    return answer.arguments().value(0).value<QDBusVariant>().variant().toString();
}

QString Seen::Role() const
{
    return Call("GetRoleName").toString();
}

bool Seen::Is(int state) const
{
    const QVariant answer = Call("GetState");
    if (!answer.canConvert<QDBusArgument>())
        return false;
    return ((qdbus_cast<QList<std::uint32_t>>(answer).value(0) >> state) & 1U) != 0;
}

bool Seen::IsShowing() const
{
    return Is(ShowingBit);
}

bool Seen::IsActive() const
{
    return Is(ActiveBit);
}

bool Seen::IsSelected() const
{
    return Is(SelectedBit);
}

bool Seen::IsEnabled() const
{
    return Is(EnabledBit);
}

QList<Seen> Seen::Children() const
{
    QList<Seen> children;
    ForEach(Call("GetChildren"), [&](const QDBusArgument& each) {
        Reference child;
        each >> child;
        children.append(Seen(m_bus, child.Service, child.Path.path()));
    });
    return children;
}

QString Seen::LabelName() const
{
    QString name;
    ForEach(Call("GetRelationSet"), [&](const QDBusArgument& each) {
        std::uint32_t kind = 0;
        each >> kind;
        each.beginArray();
        while (!each.atEnd()) {
            Reference other;
            each.beginStructure();
            each >> other;
            each.endStructure();
            if (kind == LabelledBy)
                name = Seen(m_bus, other.Service, other.Path.path()).Name();
        }
        each.endArray();
    });
    return name;
}

QRect Seen::Place() const
{
    constexpr std::uint32_t onScreen = 0;
    const QVariant answer = Call("GetExtents", "Component", {onScreen});
    if (!answer.canConvert<QDBusArgument>())
        return {};
    return qdbus_cast<QRect>(answer);
}

void Seen::Press() const
{
    int index = 0;
    int press = -1;
    ForEach(Call("GetActions", "Action"), [&](const QDBusArgument& each) {
        QString name;
        QString description;
        QString keys;
        each >> name >> description >> keys;
        if (name == QStringLiteral("Press"))
            press = index;
        ++index;
    });
    ASSERT_GE(press, 0) << Name().toStdString() << " cannot be pressed";
    EXPECT_TRUE(Call("DoAction", "Action", {press}).toBool()) << Name().toStdString();
}

std::optional<Seen> Seen::Find(const std::function<bool(const Seen&)>& fits) const
{
    std::deque<Seen> waiting{*this};
    for (; !waiting.empty(); waiting.pop_front()) {
        for (const Seen& child : waiting.front().Children()) {
            if (fits(child))
                return child;
            waiting.push_back(child);
        }
    }
    return std::nullopt;
}

Seen Seen::Child(const QString& name) const
{
    const QList<Seen> children = Children();
    for (const Seen& child : children) {
        if (child.Name() == name)
            return child;
    }
    throw std::runtime_error("nothing is called " + name.toStdString());
}

AccessBus::AccessBus()
{
    // The processes that the launcher starts are waited for, too.
    ::prctl(PR_SET_CHILD_SUBREAPER, 1);
    StartScreen();
    StartSessionBus();
    StartAccessBus();
}

AccessBus::~AccessBus()
{
    QDBusConnection::disconnectFromBus(m_folder.path());
    for (QProcess* process : {&m_windowManager, &m_launcher, &m_sessionBus, &m_screen}) {
        if (process->state() != QProcess::NotRunning)
            End(*process);
    }
    EXPECT_TRUE(EventsUntil([] { return ::waitpid(-1, nullptr, WNOHANG) == -1; }))
        << "a process of the bus is left behind";
}

void AccessBus::Start(QProcess& process, const QString& program, const QStringList& arguments)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (auto change = m_environment.begin(); change != m_environment.end(); ++change)
        environment.insert(change.key(), change.value());
    process.setProcessEnvironment(environment);
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForStarted(LimitMs)) << program.toStdString() << " is needed";
}

void AccessBus::StartScreen()
{
    // Two servers that look for a free number by themselves can remove each other's socket. A
    // server resets itself when its last client, such as the launcher of the bus, leaves, unless an
    // option forbids it.
    const QString display =
        QStringLiteral(":%1").arg(FirstDisplay + QCoreApplication::applicationPid() % Displays);
    Start(m_screen, QStringLiteral("Xvfb"),
          {display, QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
           QStringLiteral("0"), QStringLiteral("1280x1024x24"), QStringLiteral("-nolisten"),
           QStringLiteral("tcp"), QStringLiteral("-noreset")});
    // It reports its number once programs can connect.
    EXPECT_TRUE(EventsUntil([this] { return m_screen.canReadLine(); }));
    m_environment.insert(QStringLiteral("DISPLAY"), display);
    m_environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
}

void AccessBus::StartSessionBus()
{
    const QString address = QStringLiteral("unix:path=") + m_folder.filePath(QStringLiteral("bus"));
    const QString configuration = m_folder.filePath(QStringLiteral("bus.conf"));
    QFile file(configuration);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QString::fromLatin1(BusConfiguration).arg(address).toUtf8());
    file.close();
    Start(m_sessionBus, QStringLiteral("dbus-daemon"),
          {QStringLiteral("--nofork"), QStringLiteral("--print-address"),
           QStringLiteral("--config-file=") + configuration});
    EXPECT_TRUE(EventsUntil([this] { return m_sessionBus.canReadLine(); }));
    m_environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), address);
    // All files of the user are kept here.
    m_environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), m_folder.path());
    m_environment.insert(QStringLiteral("GSETTINGS_BACKEND"), QStringLiteral("memory"));
}

void AccessBus::StartAccessBus()
{
    m_environment.insert(QStringLiteral("QT_LINUX_ACCESSIBILITY_ALWAYS_ON"), QStringLiteral("1"));
    Start(m_launcher, QStringLiteral("/usr/libexec/at-spi-bus-launcher"),
          {QStringLiteral("--launch-immediately")});
    const QString name = m_folder.path() + QStringLiteral(" session");
    {
        auto session = QDBusConnection::connectToBus(
            m_environment.value(QStringLiteral("DBUS_SESSION_BUS_ADDRESS")), name);
        const auto service = QStringLiteral("org.a11y.Bus");
        EXPECT_TRUE(EventsUntil([&] { return session.interface()->isServiceRegistered(service); }));
        const QDBusMessage answer =
            session.call(QDBusMessage::createMethodCall(service, QStringLiteral("/org/a11y/bus"),
                                                        service, QStringLiteral("GetAddress")),
                         QDBus::Block, LimitMs);
        const auto bus =
            QDBusConnection::connectToBus(answer.arguments().value(0).toString(), m_folder.path());
        EXPECT_TRUE(bus.isConnected());
    }
    QDBusConnection::disconnectFromBus(name);
}

QList<Seen> AccessBus::Programs() const
{
    return Seen(QDBusConnection(m_folder.path()), Registry, Root).Children();
}

void AccessBus::Generate(const char* method, const QVariantList& arguments) const
{
    auto call = QDBusMessage::createMethodCall(
        Registry, QStringLiteral("/org/a11y/atspi/registry/deviceeventcontroller"),
        QStringLiteral("org.a11y.atspi.DeviceEventController"), QLatin1StringView(method));
    call.setArguments(arguments);
    const QDBusMessage answer = QDBusConnection(m_folder.path()).call(call, QDBus::Block, LimitMs);
    EXPECT_EQ(answer.type(), QDBusMessage::ReplyMessage) << answer.errorMessage().toStdString();
}

void AccessBus::Mouse(QPoint point, const char* what) const
{
    Generate("GenerateMouseEvent", {point.x(), point.y(), QString(QLatin1StringView(what))});
}

void AccessBus::Click(QPoint point) const
{
    Mouse(point, "b1c");
}

void AccessBus::Drag(QPoint from, QPoint to) const
{
    Mouse(from, "b1p");
    Mouse((from + to) / 2, "abs");
    Mouse(to, "abs");
    Mouse(to, "b1r");
}

void AccessBus::RightClick(QPoint point) const
{
    Mouse(point, "b3c");
}

void AccessBus::Type(const QString& text) const
{
    constexpr std::uint32_t letters = 4;
    Generate("GenerateKeyboardEvent", {0, text, letters});
}

void AccessBus::PressEnter() const
{
    constexpr int enter = 36;
    constexpr std::uint32_t pressAndRelease = 2;
    Generate("GenerateKeyboardEvent", {enter, QString(), pressAndRelease});
}

void AccessBus::PressAltF4() const
{
    constexpr int alt = 64;
    constexpr int f4 = 70;
    constexpr std::uint32_t press = 0;
    constexpr std::uint32_t release = 1;
    for (const auto& [key, what] :
         {std::pair(alt, press), {f4, press}, {f4, release}, {alt, release}})
        Generate("GenerateKeyboardEvent", {key, QString(), what});
}

void AccessBus::StartWindowManager()
{
    const QString ready = m_folder.filePath(QStringLiteral("managed"));
    Start(m_windowManager, QStringLiteral("openbox"),
          {QStringLiteral("--sm-disable"), QStringLiteral("--startup"),
           QStringLiteral("touch ") + ready});
    EXPECT_TRUE(EventsUntil([&] { return QFile::exists(ready); }));
}

} // namespace vantrel::test
