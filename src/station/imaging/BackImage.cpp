#include "station/imaging/BackImage.h"
#include "base/Skip.h"
#include "station/imaging/AcrobatFile.h"
#include "station/layout/DocumentForm.h"
#include "station/layout/LayoutParams.h"
#include "station/session/Operator.h"
#include "station/session/Session.h"
#include <QFileInfo>

namespace vantrel {

void SetBackImage(Session& session, const QString& path)
{
    if (!QFileInfo(path).isFile())
        return;
    // The first failure silently ends the command.
    Skip("back image", [&] {
        EnsureDocument(session);
        session.Document.Tag = path;
        const Picture picture = LoadPicture(path);
        session.CurrentParams.BackImg1Path = path;
        session.CurrentParams.BackImg1Picture = picture;
        RePaint(session.Document);
    });
}

void ClearBackImages(Session& session)
{
    if (session.CurrentLayoutName.isEmpty())
        return;
    ResetBackImages(session.CurrentParams);
    SaveLayoutParams(session.LayoutDb, session.CurrentLayoutName, session.CurrentParams);
    RePaint(session.Document);
}

void ImportAcrobatFile(Session& session, const QString& path)
{
    try {
        session.Operator.LetEventsRun();
        const QString image = ConvertAcrobatFile(session.ProgramFolder, path);
        EnsureDocument(session);
        session.Document.Tag = image;
        session.CurrentParams.BackImg1Path = image;
        session.CurrentParams.BackImg1Picture = LoadPicture(image);
        RePaint(session.Document);
    } catch (const Failure& failure) {
        LogSkipped("import PDF file", failure);
        session.Operator.ShowAppMessage(
            QStringLiteral("There was an error converting some or all of the pages of the selected "
                           "Acrobat Reader file. \r\n"
                           "Please check that the file is not corrupted."),
            QStringLiteral("Conversion Error"), AppMessageButtons::OkOnly);
    }
}

} // namespace vantrel
