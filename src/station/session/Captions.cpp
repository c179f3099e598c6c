#include "station/session/MainRuntime.h"
#include "station/session/Session.h"

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

QString CaptionWithLayout(const QString& layoutName, const LayoutParamsRecord& params,
                          const QString& caption)
{
    return caption + QStringLiteral("   (") + layoutName + QStringLiteral(") printing to (") +
           params.PrinterDevice + QLatin1Char(')');
}

QString LayoutStatusText(const LayoutParamsRecord& params)
{
    return QStringLiteral("Current Printer = ") + params.PrinterDevice;
}

QString HideCaption(const StationSettings& settings)
{
    return settings.MainVisible ? QStringLiteral("Hide Vantrel...")
                                : QStringLiteral("Show Vantrel...");
}

} // namespace vantrel
