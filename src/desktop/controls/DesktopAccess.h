#pragma once

#include <QAccessibleWidget>
#include <QLatin1StringView>

namespace vantrel {

/// Makes every control of that type, and its parts, known to screen readers under a known role.
/// Without this a control of our own is reported without one. To be called when one is made.
/// @tparam Interface  what is reported, made from the control and the role
template <typename Control, QAccessible::Role Role, typename Interface = QAccessibleWidget>
void TellAs()
{
    // Installing the same routine again has no effect.
    QAccessible::installFactory(
        [](const QString& className, QObject* object) -> QAccessibleInterface* {
            if (className != QLatin1StringView(Control::staticMetaObject.className()))
                return nullptr;
            return new Interface(static_cast<Control*>(object), Role);
        });
}

} // namespace vantrel
