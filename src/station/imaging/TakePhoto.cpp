#include "station/imaging/TakePhoto.h"
#include "base/CodePage.h"
#include "base/Profile.h"
#include "base/Twips.h"
#include "station/imaging/CameraLibrary.h"
#include "station/imaging/ImageCapture.h"
#include "station/layout/DrawObjects.h"
#include "station/session/Session.h"
#include "station/session/Settings.h"
#include <cmath>

namespace vantrel {

QSizeF CameraBoxOf(const CardDocument& document)
{
    const auto sizeOf = [](const CardObject& object) {
        return QSizeF(static_cast<double>(object.Width), static_cast<double>(object.Height));
    };
    const CardObject* selected = document.SelectedObject;
    if (selected != nullptr && selected->Family() == Family::img_CAM)
        return sizeOf(*selected);
    QSizeF largest;
    for (int index = 1; index <= document.HighestIndex(Family::img_CAM); ++index) {
        const CardObject* image = document.Find(Family::img_CAM, index);
        if (image == nullptr || !image->IsContent())
            continue;
        const QSizeF size = sizeOf(*image);
        if (largest.isEmpty() || size.width() * size.height() > largest.width() * largest.height())
            largest = size;
    }
    return largest.isEmpty() ? QSizeF() : largest;
}

void AcceptPhoto(Session& session, const QImage& part)
{
    session.CameraImage = Picture::FromImage(part);
    KeepCameraProportions(session.Document);
    SetCamImages(session.Document, session.CameraImage);
}

int DotsOnCard(QSize part, QSizeF boxTwips)
{
    if (boxTwips.isEmpty())
        return 0;
    return static_cast<int>(std::lround(part.width() * TwipsPerInch / boxTwips.width()));
}

QString NameCameraFolder(const QString& programFolder, const QString& folder)
{
    const QString value = CameraFolderWord + folder;
    if (value.size() > ProfileValueLimit)
        return QStringLiteral("The path of the folder is longer than the settings file takes.");
    if (FromCodePage(ToCodePage(value)) != value)
        return QStringLiteral("The path of the folder has characters that the settings file cannot "
                              "hold.");
    if (!WriteProfileValue(SettingsPath(programFolder), QStringLiteral("Station"),
                           QStringLiteral("Camera"), value))
        return QStringLiteral("The settings file \"Vantrel 6.ini\" cannot be written.");
    return {};
}

} // namespace vantrel
