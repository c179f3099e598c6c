#include "imaging/AcrobatFile.h"
#include "app/Session.h"
#include "app/Settings.h"
#include "platform/Convert.h"
#include "platform/Failure.h"
#include "platform/PlaceFile.h"
#include "platform/Skip.h"
#include "platform/Twips.h"
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QPdfDocument>
#include <QTemporaryFile>

namespace vantrel {

namespace {

constexpr double DotsPerInch = 300;
/// A page beyond this is no card; its picture would eat the memory of the machine.
constexpr double MostPixels = 64e6;

bool IsConversionOn(const Session& session)
{
    bool on = false;
    Skip("PDF import setting",
         [&] { on = ToBoolean(StationOption(session, QStringLiteral("PdfImport"))); });
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
    // What a page leaves free is paper.
    QImage page(drawn.size(), QImage::Format_RGB32);
    page.fill(Qt::white);
    QPainter(&page).drawImage(0, 0, drawn);
    page.setDotsPerMeterX(qRound(DotsPerInch * 100 / 2.54));
    page.setDotsPerMeterY(page.dotsPerMeterX());
    return page;
}

/// Writes a PNG under the first free of "NAME.png", "NAME 2.png" and so on: layouts know their
/// pictures by path, so none is ever replaced.
QString WritePng(const Session& session, const QImage& image, const QString& name)
{
    QTemporaryFile file(session.PathInFolder(QStringLiteral(".page-XXXXXX.part")));
    if (!file.open() || !image.save(&file, "PNG") || !file.flush())
        throw Failure(FailureNumber::PathNotFound, QStringLiteral("Path not found"));
    for (int number = 1;; ++number) {
        const QString copy = number == 1 ? QString() : QStringLiteral(" %1").arg(number);
        QString path = session.PathInFolder(name + copy + QStringLiteral(".png"));
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

QString ConvertAcrobatFile(const Session& session, const QString& path)
{
    if (!IsConversionOn(session))
        return {};
    return WritePng(session, FirstPage(path), QFileInfo(path).completeBaseName());
}

} // namespace vantrel
