#include "station/imaging/Workspace.h"
#include "base/Convert.h"
#include "base/Skip.h"
#include "station/session/Session.h"
#include "station/session/Settings.h"
#include <QFileInfo>

namespace vantrel {

namespace {
constexpr ColorValue NextToBlack = 1;
} // namespace

void SetWorkspaceColor(Session& session, ColorValue color)
{
    session.Settings.Background = static_cast<double>(color == ColorBlack ? NextToBlack : color);
    session.Face.NotifyBackground();
    SaveSetting(session, SettingNumber::Background, QString::number(color));
}

void SetWorkspacePicture(Session& session, const QString& path)
{
    if (QFileInfo(path).isFile()) {
        Skip("background picture", [&] { session.Settings.Background = LoadPicture(path); });
        SaveSetting(session, SettingNumber::Background, path);
    }
    session.Face.NotifyBackground();
}

void ResetWorkspace(Session& session)
{
    session.Settings.Background = static_cast<double>(ColorBlack);
    session.Face.NotifyBackground();
    SaveSetting(session, SettingNumber::Background, QStringLiteral("0"));
}

ColorValue WorkspaceColor(const StationSettings& settings)
{
    const auto* number = std::get_if<double>(&settings.Background);
    ColorValue color = ColorBlack;
    if (number != nullptr)
        Skip("workspace colour", [&] { color = RoundToLong(*number); });
    return color;
}

} // namespace vantrel
