#pragma once

#include "desktop/window/frmMain.h"
#include "support/TestSession.h"
#include <QAbstractButton>
#include <QAction>
#include <QLabel>
#include <memory>

namespace vantrel::test {

/// A station with its main window, in a temporary program folder, with closed ports.
class DesktopStation : public TestSession
{
public:
    /// @param options  what is switched on, as at the start of a station
    explicit DesktopStation(bool visible = true, const StationOptions& options = {});

    /// Makes a layout with one static text and one data field, and leaves it open.
    void WithLayout(const QString& name = QStringLiteral("Badge"));
    /// Writes a key of the status file that a launcher writes.
    void WriteStatus(const QString& key, const QString& value) const;
    /// Loads the window as a start does.
    void Load() { Window.Load(); }
    /// Runs the station until it ends. @return its exit code
    static int RunToEnd();

    template <typename Control>
    Control& Get(const char* name)
    {
        return Named<Control>(Window, name);
    }
    /// A control by its name; fails the test and ends the program where there is none.
    template <typename Control>
    static Control& Named(const QObject& parent, const char* name)
    {
        auto* found = parent.findChild<Control*>(QLatin1StringView(name));
        if (found == nullptr)
            throw std::runtime_error(std::string("no control named ") + name);
        return *found;
    }
    /// Chooses a menu entry and lets its command run.
    void Choose(const char* name);
    void Press(const char* name);
    /// Asks a window to close as a window manager does. @return whether it closed
    static bool CloseByWindowManager(QWidget& window);

    frmMain Window;
};

} // namespace vantrel::test
