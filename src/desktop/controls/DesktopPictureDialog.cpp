#include "desktop/controls/DesktopPictureDialog.h"
#include "base/Skip.h"
#include "desktop/controls/DesktopControls.h"
#include "desktop/controls/DesktopFileKinds.h"
#include "desktop/controls/DesktopOwner.h"
#include "drawing/Picture.h"
#include "drawing/PictureFormats.h"
#include "station/imaging/ImageCapture.h"
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>

namespace vantrel {

namespace {

constexpr QSize PreviewRoom{200, 200};
const QString FolderKey = QStringLiteral("PictureFolder");

/// The endings of the files that are listed, each as "*.png".
QStringList Patterns()
{
    QStringList patterns;
    for (const PictureFormat& format : PictureFormats()) {
        const QStringList endings =
            QString::fromLatin1(format.Endings).split(QLatin1Char(' '), Qt::SkipEmptyParts);
        for (const QString& ending : endings)
            patterns += QStringLiteral("*.") + ending;
    }
    return patterns;
}

/// Whether a file has an ending of a picture. Other files are not opened: whoever opens the
/// database's file and closes it again gives up the locks of its connection.
bool IsNamedAsPicture(const QString& path)
{
    return Patterns().contains(QStringLiteral("*.") + QFileInfo(path).suffix().toLower());
}

void ShowPreview(QLabel& preview, const QString& path)
{
    preview.setPixmap({});
    preview.setText(QStringLiteral("No picture is chosen"));
    if (!QFileInfo(path).isFile() || !IsNamedAsPicture(path))
        return;
    preview.setText(QStringLiteral("This file is no picture, or not a whole one"));
    Skip("preview", [&] {
        const QImage image = LoadPicture(path).Image();
        const double ratio = preview.devicePixelRatioF();
        QPixmap shown = QPixmap::fromImage(
            image.scaled(PreviewRoom * ratio, Qt::KeepAspectRatio, Qt::SmoothTransformation));
        shown.setDevicePixelRatio(ratio);
        preview.setPixmap(shown);
        preview.setAccessibleDescription(
            QStringLiteral("%1 by %2 pixels").arg(image.width()).arg(image.height()));
    });
}

/// Puts the preview to the right of the list.
void AddPreview(QFileDialog& dialog)
{
    auto* grid = qobject_cast<QGridLayout*>(dialog.layout());
    if (grid == nullptr)
        return;
    auto* preview = MakeControl<QLabel>("imgPreview", &dialog);
    preview->setAccessibleName(QStringLiteral("Preview"));
    preview->setFixedSize(PreviewRoom);
    preview->setAlignment(Qt::AlignCenter);
    preview->setWordWrap(true);
    ShowPreview(*preview, QString());
    constexpr int listRow = 1;
    grid->addWidget(preview, listRow, grid->columnCount(), Qt::AlignTop);
    QObject::connect(&dialog, &QFileDialog::currentChanged, preview,
                     [preview](const QString& path) { ShowPreview(*preview, path); });
}

} // namespace

QString PictureFolder()
{
    const QString folder = CaptureSettings()->value(FolderKey).toString();
    return QFileInfo(folder).isDir() ? folder : QString();
}

QString DesktopPictureDialog::Ask(QWidget& window, const QString& folder)
{
    KindByName kinds;
    QFileDialog dialog(&window, QStringLiteral("Choose a Picture"));
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setIconProvider(&kinds);
    dialog.setObjectName(QStringLiteral("OpenFile"));
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setNameFilter(QStringLiteral("Pictures (") + Patterns().join(QLatin1Char(' ')) +
                         QLatin1Char(')'));
    // The long list of endings would be wider than the dialog.
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    const QString last = PictureFolder();
    dialog.setDirectory(last.isEmpty() ? folder : last);
    AddPreview(dialog);
    BelongTo(dialog, WindowInUse());
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    QString chosen = dialog.selectedFiles().constFirst();
    CaptureSettings()->setValue(FolderKey, QFileInfo(chosen).absolutePath());
    return chosen;
}

} // namespace vantrel
