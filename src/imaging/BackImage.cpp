#include "imaging/BackImage.h"
#include "app/Operator.h"
#include "app/Session.h"
#include "imaging/AcrobatFile.h"
#include "layout/DocumentForm.h"
#include "platform/Skip.h"
#include <QFileInfo>

namespace vantrel {

void SetBackImage(Session& session, const QString& path)
{
    if (!QFileInfo(path).isFile())
        return;
    // One step: it ends in silence wherever it fails.
    Skip("back image", [&] {
        EnsureDocument(session);
        session.Document.Tag = path;
        const Picture picture = LoadPicture(path);
        session.CurrentParams.BackImg1Path = path;
        session.CurrentParams.BackImg1Picture = picture;
        RePaint(session);
    });
}

void ClearBackImages(Session& session)
{
    if (session.CurrentLayoutName.isEmpty())
        return;
    ResetBackImages(session.CurrentParams);
    SaveLayoutParams(session);
    RePaint(session);
}

void ImportAcrobatFile(Session& session, const QString& path)
{
    try {
        session.Operator.LetEventsRun();
        const QString image = ConvertAcrobatFile(session, path);
        EnsureDocument(session);
        session.Document.Tag = image;
        session.CurrentParams.BackImg1Path = image;
        session.CurrentParams.BackImg1Picture = LoadPicture(image);
        RePaint(session);
    } catch (const Failure& failure) {
        TellSkipped("import PDF file", failure);
        session.Operator.ShowAppMessage(
            QStringLiteral("There was an error converting some or all of the pages of the selected "
                           "Acrobat Reader file. \r\n"
                           "Please check that the file is not corrupted."),
            QStringLiteral("Conversion Error"), AppMessageButtons::OkOnly);
    }
}

} // namespace vantrel
