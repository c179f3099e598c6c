#include "desktop/menu/DesktopFileCommands.h"
#include "base/DesktopColor.h"
#include "desktop/controls/DesktopFileDialog.h"
#include "desktop/controls/DesktopPictureDialog.h"
#include "station/commands/Version4Import.h"
#include "station/imaging/BackImage.h"
#include "station/imaging/ChooseImage.h"
#include "station/imaging/Workspace.h"
#include "station/layout/PageKey.h"
#include "station/session/Session.h"
#include <QColorDialog>
#include <QMainWindow>

namespace vantrel {

namespace {

/// Asks for a file for the page that is open. While the dialog is open a record may open another
/// page, or close the layout; the file is not meant for that page and is dropped.
template <typename Ask, typename Take>
void AskForPage(Session& session, Ask ask, Take take)
{
    const PageKey asked = PageOnForm(session);
    const QString path = ask();
    if (PageOnForm(session) == asked)
        take(session, path);
}

/// Asks for a file, beginning with no name. @return its path, empty where the operator cancels
QString AskForFile(DesktopFileDialog& dialog)
{
    dialog.FileName.clear();
    dialog.ShowOpen();
    return dialog.FileName;
}

/// Asks for a picture for a part of a card. With the design tools the dialog lists pictures only
/// and begins where the last one was taken from; else it is the shared one, and `ask` is called.
template <typename Ask>
QString AskForPicture(const Session& session, QMainWindow& window, Ask ask)
{
    return session.Options.DesignTools ? DesktopPictureDialog::Ask(window, session.ProgramFolder)
                                       : ask();
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
    if (session.CurrentLayoutName.isEmpty())
        return;
    AskForPage(
        session,
        [&] {
            return AskForPicture(session, window,
                                 [&] { return AskForFile(DesktopFileDialog::Of(window)); });
        },
        SetBackImage);
}

void AcrobatBackImageCommand(Session& session, QMainWindow& window)
{
    if (session.CurrentLayoutName.isEmpty())
        return;
    const auto ask = [&] {
        auto& dialog = DesktopFileDialog::Of(window);
        // The filter is not reset and the name is not cleared, so a cancelled dialog converts too.
        dialog.Filter = QStringLiteral("*.pdf|*.PDF");
        dialog.ShowOpen();
        return dialog.FileName;
    };
    AskForPage(session, ask, ImportAcrobatFile);
}

void ChooseImageCommand(Session& session, QMainWindow& window)
{
    AskForPage(
        session,
        [&] {
            return AskForPicture(session, window,
                                 [&] { return AskForFileInProgramFolder(session, window); });
        },
        [](Session& station, const QString& path) {
            if (station.Options.DesignTools)
                ChooseImageForBox(station.Document, path);
            else
                ChooseImage(station.Document, path);
        });
}

void WorkspaceColorCommand(Session& session, QMainWindow& window)
{
    QColorDialog dialog(ColorOf(WorkspaceColor(session.Settings)), &window);
    if (dialog.exec() == QDialog::Accepted)
        SetWorkspaceColor(session, ColorValueOf(dialog.selectedColor()));
}

void WorkspacePictureCommand(Session& session, QMainWindow& window)
{
    SetWorkspacePicture(session, AskForPicture(session, window, [&] {
                            auto& dialog = DesktopFileDialog::Of(window);
                            dialog.ShowOpen();
                            return dialog.FileName;
                        }));
}

} // namespace vantrel
