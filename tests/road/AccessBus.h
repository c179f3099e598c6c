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

/// Something that a program tells to a screen reader: a window, a control, a menu entry.
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
    QList<Seen> Children() const;
    /// The name of the label that stands for it; empty where there is none.
    QString LabelName() const;
    /// Where it stands on the screen, in pixels.
    QRect Place() const;
    /// Does what a press of it does. Fails the test where it cannot be pressed.
    void Press() const;

    /// The first thing below that fits, level by level.
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

/// A screen and an accessibility bus of a test's own, so that a program shows windows there and
/// tells of them here. All of it ends with the test.
class AccessBus
{
public:
    AccessBus();
    ~AccessBus();
    AccessBus(const AccessBus&) = delete;
    AccessBus& operator=(const AccessBus&) = delete;

    /// What a program needs to know of both.
    const QMap<QString, QString>& Environment() const { return m_environment; }
    /// The programs that tell of themselves.
    QList<Seen> Programs() const;
    /// Presses the right button of the mouse there and lets it go.
    void RightClick(QPoint point) const;
    /// Holds Alt and presses F4.
    void PressAltF4() const;
    /// Has a window manager on the screen from now on.
    void StartWindowManager();

private:
    void StartScreen();
    void StartSessionBus();
    /// Over the session's bus programs find the one of the screen readers.
    void StartAccessBus();
    /// Calls the one that makes the events of a mouse and a keyboard.
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
