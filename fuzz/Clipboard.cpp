#include "FuzzInput.h"
#include "printers/StationPrinters.h"
#include "samples/FreshInstall.h"
#include "station/commands/ClipCommands.h"
#include "station/layout/DesignSelection.h"
#include "station/layout/NewLayout.h"
#include "station/session/Session.h"
#include "station/session/UnattendedOperator.h"
#include <QTemporaryDir>

// For any bytes on a clipboard: what is no object is left out, and what was pasted can be copied
// and pasted again as the same number of objects.

namespace {

using namespace vantrel;

/// A station on whose surface a page is open.
struct Designer
{
    Designer()
    {
        MakeProgramFolder(Folder.path());
        Session.LayoutDb.Open(LayoutDatabasePath(Folder.path()));
        Session.Options.DesignTools = true;
        NewLayout(Session, QStringLiteral("Badge"));
    }
    std::size_t Count() const
    {
        std::size_t count = 0;
        for (const auto& object : Session.Document.Objects())
            count += object->IsContent() ? 1 : 0;
        return count;
    }
    void Clear()
    {
        std::vector<CardObject*> content;
        for (const auto& object : Session.Document.Objects()) {
            if (object->IsContent())
                content.push_back(object.get());
        }
        for (CardObject* object : content)
            Session.Document.Remove(*object);
    }

    QTemporaryDir Folder;
    UnattendedOperator Operator;
    StationPrinters Printers{Folder.path(), 1};
    vantrel::Session Session{Folder.path(), Operator, Printers};
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static Designer designer;
    fuzz::Require(!designer.Session.CurrentLayoutName.isEmpty(), "a layout is open");
    const QByteArray bytes = fuzz::Input(data, size).Rest();
    PasteObjects(designer.Session, bytes);
    const std::size_t pasted = designer.Count();
    fuzz::Require(pasted <= MostPasted, "so many objects are pasted at most");
    const QByteArray copied = CopySelected(designer.Session);
    fuzz::Require(copied.isEmpty() == (pasted == 0), "what was pasted is selected");
    designer.Clear();
    PasteObjects(designer.Session, copied);
    fuzz::Require(designer.Count() == pasted, "what was copied is pasted");
    fuzz::Require(CopySelected(designer.Session) == copied, "a copy of a copy is the same");
    designer.Clear();
    PasteText(designer.Session, QString::fromUtf8(bytes));
    designer.Clear();
    return 0;
}
