#pragma once

#include <QLatin1StringView>
#include <QWidget>
#include <utility>

namespace vantrel {

class Session;

/// @file How windows make their controls and are shown. A control's name is its name in the system.

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

/// The beginning of a value, which is all that a list shows. A line is laid out as a whole, and a
/// value of a million characters, which a host may send, would stop the station for a second each
/// time.
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

/// The width in pixels at which a window shows that title whole, with room for what desktops put
/// beside it.
int WidthForTitle(const QString& title);
/// The title that a window gets: a blank one where there is none, since desktops show the name of
/// the program's file in the title bar of a window without a title.
QString ShownTitle(const QString& title);

/// Places a dialog over the middle of its parent, `lift` twips higher; both are measured with their
/// frames.
void CentreOver(QWidget& dialog, const QWidget* parent, double lift = 0);
/// Places a dialog as above, but as if the parent were in the upper left corner of the screen.
void PlaceBySizeOf(QWidget& dialog, const QWidget* parent, double lift);

} // namespace vantrel
