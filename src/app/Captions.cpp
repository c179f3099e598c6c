#include "app/MainRuntime.h"
#include "app/Session.h"

namespace vantrel {

QString VersionText()
{
    return QStringLiteral("%1.%2").arg(VANTREL_VERSION_MAJOR).arg(VANTREL_VERSION_MINOR);
}

QString StartCaption()
{
    return QStringLiteral(" Ostrand Vantrel v") + VersionText();
}

QString PlainCaption()
{
    return QStringLiteral(" Vantrel v") + VersionText();
}

QString AboutCaption()
{
    return QStringLiteral("About") + StartCaption();
}

QString CaptionWithLayout(const Session& session, const QString& caption)
{
    return caption + QStringLiteral("   (") + session.CurrentLayoutName +
           QStringLiteral(") printing to (") + session.CurrentParams.PrinterDevice +
           QLatin1Char(')');
}

QString LayoutStatusText(const Session& session)
{
    return QStringLiteral("Current Printer = ") + session.CurrentParams.PrinterDevice;
}

QString HideCaption(const Session& session)
{
    return session.Settings.MainVisible ? QStringLiteral("Hide Vantrel...")
                                        : QStringLiteral("Show Vantrel...");
}

} // namespace vantrel
