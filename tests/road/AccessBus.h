#pragma once

#include <QDBusConnection>
#include <QMap>
#include <QProcess>
#include <QRect>
#include <QStringList>
#include <QTemporaryDir>
#include <functional>
#include <optional>

namespace vantrel::test {

/// An object that a program shows to a screen reader: a window, a control, a menu entry.
class Seen
{
public:
    Seen(QDBusConnection bus, QString service, QString path)
        : m_bus(std::move(bus)), m_service(std::move(service)), m_path(std::move(path))
    {}

    QString Name() const { return Text("Name"); }
    QString Description() const { return Text("Description"); }
    /// Its role in the words of the accessibility bus, such as "push button".
    QString Role() const;
    bool IsShowing() const;
    /// Whether it is the window that has the keyboard.
    bool IsActive() const;
    /// Whether it is chosen among others, such as an object on the card.
    bool IsSelected() const;
    /// Whether it can be used.
    bool IsEnabled() const;
    QList<Seen> Children() const;
    /// The name of the label that stands for it; empty where there is none.
    QString LabelName() const;
    /// Where it stands on the screen, in pixels.
    QRect Place() const;
    /// Does the same as a press on it. Fails the test where it cannot be pressed.
    void Press() const;

    /// The first descendant that fits, level by level.
    std::optional<Seen> Find(const std::function<bool(const Seen&)>& fits) const;
    /// A child by its name; fails the test by an exception where there is none.
    Seen Child(const QString& name) const;

private:
    bool Is(int state) const;
    QVariant Call(const char* method, const char* interface = "Accessible",
                  const QVariantList& arguments = {}) const;
    QString Text(const char* property) const;

    QDBusConnection m_bus;
    QString m_service;
    QString m_path;
};

/// A screen and an accessibility bus of the test's own: a program shows its windows on the screen
/// and reports them over the bus. Both end with the test.
class AccessBus
{
public:
    AccessBus();
    ~AccessBus();
    AccessBus(const AccessBus&) = delete;
    AccessBus& operator=(const AccessBus&) = delete;

    /// The environment in which a program uses both.
    const QMap<QString, QString>& Environment() const { return m_environment; }
    /// The programs that are on the bus.
    QList<Seen> Programs() const;
    /// Presses and releases the left button of the mouse there.
    void Click(QPoint point) const;
    /// Moves the mouse from one place to the other with the left button held.
    void Drag(QPoint from, QPoint to) const;
    /// The same with the right one.
    void RightClick(QPoint point) const;
    /// Types a text of ASCII characters.
    void Type(const QString& text) const;
    void PressEnter() const;
    /// Holds Alt and presses F4.
    void PressAltF4() const;
    /// Starts a window manager on the screen.
    void StartWindowManager();

private:
    void StartScreen();
    void StartSessionBus();
    /// Over the session's bus programs find the accessibility bus.
    void StartAccessBus();
    void Mouse(QPoint point, const char* what) const;
    /// Calls the service that makes events of a mouse and a keyboard.
    void Generate(const char* method, const QVariantList& arguments) const;
    void Start(QProcess& process, const QString& program, const QStringList& arguments);

    QTemporaryDir m_folder;
    QMap<QString, QString> m_environment;
    QProcess m_screen;
    QProcess m_sessionBus;
    QProcess m_launcher;
    QProcess m_windowManager;
};

} // namespace vantrel::test
