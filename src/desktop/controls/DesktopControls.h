#pragma once

#include <QLatin1StringView>
#include <QWidget>
#include <utility>

namespace vantrel {

class Session;

/// @file How windows make their controls and come up. A control's name is its name in the system.

/// A dialog whose title bar has no close box; it is left by its own buttons.
inline constexpr Qt::WindowFlags DialogWithoutClose =
    Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint;

/// A control under its name, made with `arguments`; its parent owns it.
template <typename Control, typename... Arguments>
Control* MakeControl(const char* name, Arguments&&... arguments)
{
    auto* control = new Control(std::forward<Arguments>(arguments)...);
    control->setObjectName(QLatin1StringView(name));
    return control;
}

/// What a list shows of a value: its beginning. A line is laid out as a whole, and one of a million
/// characters, which a host may send, holds up the station for a second each time.
QString ShownLine(const QString& value);

/// Shows the dialog over `parent` without waiting for it; one that is open already comes to the
/// front. Fails as making the dialog fails.
template <typename Dialog>
Dialog& OpenDialog(Session& session, QWidget* parent)
{
    auto* dialog = parent->findChild<Dialog*>();
    if (dialog == nullptr) {
        dialog = new Dialog(session, parent);
        dialog->setAttribute(Qt::WA_DeleteOnClose);
    }
    dialog->show();
    dialog->raise();
    dialog->activateWindow();
    return *dialog;
}

/// The width in pixels in which a window shows that title whole, by what desktops put beside it.
int WidthForTitle(const QString& title);
/// The title that a window gets: a blank one where there is none, since desktops show the name of
/// the program's file in the title bar of a window without a title.
QString ShownTitle(const QString& title);

/// Places a dialog over the middle of its parent, `lift` twips higher, by what both are with their
/// frames.
void CentreOver(QWidget& dialog, const QWidget* parent, double lift = 0);
/// Places a dialog where that middle is while the parent stands in the corner of the screen.
void PlaceBySizeOf(QWidget& dialog, const QWidget* parent, double lift);

} // namespace vantrel
