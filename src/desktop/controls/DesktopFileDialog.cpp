#include "desktop/controls/DesktopFileDialog.h"
#include "desktop/controls/DesktopOwner.h"
#include <QFileDialog>

namespace vantrel {

DesktopFileDialog::DesktopFileDialog(QWidget& window) : QObject(&window), m_window(window)
{
    setObjectName(QStringLiteral("CommonDialog"));
}

DesktopFileDialog& DesktopFileDialog::Of(QWidget& window)
{
    auto* dialog = window.findChild<DesktopFileDialog*>(QString(), Qt::FindDirectChildrenOnly);
    return dialog != nullptr ? *dialog : *new DesktopFileDialog(window);
}

void DesktopFileDialog::ShowOpen()
{
    QFileDialog dialog(&m_window);
    dialog.setObjectName(QStringLiteral("OpenFile"));
    dialog.setFileMode(QFileDialog::ExistingFile);
    if (!InitialFolder.isEmpty())
        dialog.setDirectory(InitialFolder);
    const QString pattern = Filter.section(QLatin1Char('|'), 1, 1);
    if (!pattern.isEmpty())
        dialog.setNameFilter(Filter.section(QLatin1Char('|'), 0, 0) + QStringLiteral(" (") +
                             pattern + QLatin1Char(')'));
    if (!FileName.isEmpty())
        dialog.selectFile(FileName);
    BelongTo(dialog, WindowInUse());
    if (dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty())
        FileName = dialog.selectedFiles().constFirst();
}

} // namespace vantrel
