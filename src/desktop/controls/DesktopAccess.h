#pragma once

#include <QAccessibleWidget>
#include <QLatin1StringView>

namespace vantrel {

/// Has every control of that type, and its parts, told as one of a known kind to who cannot see it;
/// without this a control of our own is told as nothing in particular. To be called when one is
/// made.
/// @tparam Interface  what is told, made from the control and the role
template <typename Control, QAccessible::Role Role, typename Interface = QAccessibleWidget>
void TellAs()
{
    // The same routine again is not taken twice.
    QAccessible::installFactory(
        [](const QString& className, QObject* object) -> QAccessibleInterface* {
            if (className != QLatin1StringView(Control::staticMetaObject.className()))
                return nullptr;
            return new Interface(static_cast<Control*>(object), Role);
        });
}

} // namespace vantrel
