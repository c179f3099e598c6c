#include "shell/DesktopFileCommands.h"
#include "app/DesktopColor.h"
#include "app/Session.h"
#include "imaging/BackImage.h"
#include "imaging/ChooseImage.h"
#include "imaging/Workspace.h"
#include "shell/DesktopFileDialog.h"
#include "shell/Version4Import.h"
#include <QColorDialog>
#include <QMainWindow>

namespace vantrel {

namespace {

/// Asks for a file, beginning with no name. @return its path, empty where the operator cancels
QString AskForFile(DesktopFileDialog& dialog)
{
    dialog.FileName.clear();
    dialog.ShowOpen();
    return dialog.FileName;
}

QString AskForFileInProgramFolder(const Session& session, QMainWindow& window)
{
    auto& dialog = DesktopFileDialog::Of(window);
    dialog.InitialFolder = session.ProgramFolder;
    return AskForFile(dialog);
}

} // namespace

void ImportVersion4Command(Session& session, QMainWindow& window)
{
    ImportVersion4Session(session, AskForFileInProgramFolder(session, window));
}

void BackImageCommand(Session& session, QMainWindow& window)
{
    SetBackImage(session, AskForFile(DesktopFileDialog::Of(window)));
}

void AcrobatBackImageCommand(Session& session, QMainWindow& window)
{
    auto& dialog = DesktopFileDialog::Of(window);
    // Nobody resets the filter, and the name is not cleared: a cancelled dialog converts, too.
    dialog.Filter = QStringLiteral("*.pdf|*.PDF");
    dialog.ShowOpen();
    ImportAcrobatFile(session, dialog.FileName);
}

void ChooseImageCommand(Session& session, QMainWindow& window)
{
    ChooseImage(session, AskForFileInProgramFolder(session, window));
}

void WorkspaceColorCommand(Session& session, QMainWindow& window)
{
    QColorDialog dialog(ColorOf(WorkspaceColor(session)), &window);
    if (dialog.exec() == QDialog::Accepted)
        SetWorkspaceColor(session, ColorValueOf(dialog.selectedColor()));
}

void WorkspacePictureCommand(Session& session, QMainWindow& window)
{
    auto& dialog = DesktopFileDialog::Of(window);
    dialog.ShowOpen();
    SetWorkspacePicture(session, dialog.FileName);
}

} // namespace vantrel
