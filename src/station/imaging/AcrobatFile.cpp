#include "station/imaging/AcrobatFile.h"
#include "base/Convert.h"
#include "base/Failure.h"
#include "base/PlaceFile.h"
#include "base/Skip.h"
#include "base/Twips.h"
#include "station/session/Session.h"
#include "station/session/Settings.h"
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QPdfDocument>
#include <QTemporaryFile>

namespace vantrel {

namespace {

constexpr double DotsPerInch = 300;
/// Larger pages are refused to limit the memory of the picture.
constexpr double MostPixels = 64e6;

bool IsConversionOn(const QString& programFolder)
{
    bool on = false;
    Skip("PDF import setting",
         [&] { on = ToBoolean(StationOption(programFolder, QStringLiteral("PdfImport"))); });
    return on;
}

QImage FirstPage(const QString& path)
{
    QPdfDocument document;
    if (document.load(path) != QPdfDocument::Error::None || document.pageCount() < 1)
        throw Failure(FailureNumber::InvalidPicture, QStringLiteral("Invalid picture"));
    const QSizeF pixels = document.pagePointSize(0) * DotsPerInch / PointsPerInch;
    if (pixels.width() * pixels.height() > MostPixels)
        throw Failure(FailureNumber::InvalidPicture, QStringLiteral("Invalid picture"));
    const QImage drawn = document.render(0, pixels.toSize().expandedTo({1, 1}));
    if (drawn.isNull())
        throw Failure(FailureNumber::InvalidPicture, QStringLiteral("Invalid picture"));
    // Empty areas of the page become white.
    QImage page(drawn.size(), QImage::Format_RGB32);
    page.fill(Qt::white);
    QPainter(&page).drawImage(0, 0, drawn);
    page.setDotsPerMeterX(qRound(DotsPerInch * 100 / 2.54));
    page.setDotsPerMeterY(page.dotsPerMeterX());
    return page;
}

/// Writes a PNG under the first free name of "NAME.png", "NAME 2.png" and so on. Existing pictures
/// are never replaced, because layouts refer to them by path.
QString WritePng(const QString& programFolder, const QImage& image, const QString& name)
{
    QTemporaryFile file(PathIn(programFolder, QStringLiteral(".page-XXXXXX.part")));
    if (!file.open() || !image.save(&file, "PNG") || !file.flush())
        throw Failure(FailureNumber::PathNotFound, QStringLiteral("Path not found"));
    for (int number = 1;; ++number) {
        const QString copy = number == 1 ? QString() : QStringLiteral(" %1").arg(number);
        QString path = PathIn(programFolder, name + copy + QStringLiteral(".png"));
        switch (PlaceFile(file.fileName(), path)) {
        case PlaceResult::Placed:
            file.setAutoRemove(false);
            return path;
        case PlaceResult::NameTaken:
            continue;
        case PlaceResult::Failed:
            throw Failure(FailureNumber::PathNotFound, QStringLiteral("Path not found"));
        }
    }
}

} // namespace

QString ConvertAcrobatFile(const QString& programFolder, const QString& path)
{
    if (!IsConversionOn(programFolder))
        return {};
    return WritePng(programFolder, FirstPage(path), QFileInfo(path).completeBaseName());
}

} // namespace vantrel
