#pragma once

#include "desktop/DesktopStation.h"
#include <QPalette>
#include <functional>
#include <gtest/gtest.h>
#include <ostream>
#include <span>

namespace vantrel::test {

/// A window of the station and the routine that opens it.
struct WindowRow
{
    const char* Name;
    QWidget& (*Open)(DesktopStation& station);
};

/// Every window that the station can show, the main window first.
std::span<const WindowRow> EveryWindow();

/// Names a test of one window.
inline std::string NameOfWindow(const ::testing::TestParamInfo<WindowRow>& window)
{
    return window.param.Name;
}

/// The colours of a desktop with a dark theme.
QPalette DarkPalette();

inline std::ostream& operator<<(std::ostream& out, const WindowRow& row)
{
    return out << row.Name;
}

/// A station with all that the windows need: a layout with an object of each family, one of them
/// selected, a record with its buffered copy, printers and macros.
class FullStation : public DesktopStation
{
public:
    FullStation();
};

/// Shows each page of a window in turn: those of its tabs or of its steps.
void OnEachFace(QWidget& window, const std::function<void()>& look);

/// Opens the window and waits until it has the keyboard.
QWidget& OpenActive(const WindowRow& row, DesktopStation& station);

/// Visible widgets below the window that are of that type.
template <typename Widget>
QList<Widget*> Shown(const QWidget& window)
{
    QList<Widget*> shown;
    for (Widget* widget : window.findChildren<Widget*>()) {
        if (widget->isVisible() && widget->window() == &window)
            shown.append(widget);
    }
    return shown;
}

/// Whether a widget is a part that Qt makes inside one of its controls.
bool IsPartOfControl(const QWidget& widget);

/// A widget as a failure message names it: its class and name.
std::string Told(const QObject& object);

} // namespace vantrel::test
