#include "desktop/controls/DesktopFileDialog.h"
#include "desktop/controls/DesktopFileKinds.h"
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
    KindByName kinds;
    QFileDialog dialog(&m_window);
    // A desktop's own dialog may read the files that it lists, in this very process.
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setIconProvider(&kinds);
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

QString DesktopFileDialog::AskFileToSave(QWidget& window, const QString& title, const QString& name,
                                         const QString& pattern)
{
    KindByName kinds;
    QFileDialog dialog(&window, title);
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setIconProvider(&kinds);
    dialog.setObjectName(QStringLiteral("SaveFile"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilter(pattern);
    dialog.setDefaultSuffix(pattern.section(u'.', 1));
    dialog.selectFile(name);
    const bool chosen = dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty();
    return chosen ? dialog.selectedFiles().constFirst() : QString();
}

QString DesktopFileDialog::AskFolder(QWidget& window, const QString& title, const QString& folder)
{
    KindByName kinds;
    QFileDialog dialog(&window, title);
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setIconProvider(&kinds);
    dialog.setObjectName(QStringLiteral("OpenFolder"));
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    if (!folder.isEmpty())
        dialog.setDirectory(folder);
    const bool chosen = dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty();
    return chosen ? dialog.selectedFiles().constFirst() : QString();
}

} // namespace vantrel
