#include "station/layout/PageDescription.h"
#include "FuzzInput.h"
#include "card/CardDocument.h"
#include "card/FieldValues.h"
#include "card/RecordPicture.h"
#include "printers/StationPrinters.h"
#include "station/layout/DocumentForm.h"
#include "station/session/Session.h"
#include "station/session/UnattendedOperator.h"
#include <QTemporaryDir>

// For any description of a page in the ledger: the page is built, or is empty, and a record can be
// poured into it.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace vantrel;
    static const QTemporaryDir folder;
    static UnattendedOperator stationOperator;
    static StationPrinters printers(folder.path(), 1);
    Session session(folder.path(), stationOperator, printers);
    CardDocument& document = OpenForm(session);
    const QString content = QString::fromUtf8(fuzz::Input(data, size).Rest());
    BuildPage(content, document, session.CurrentParams);
    FieldValues values;
    values.Add(QStringLiteral("Ada"));
    values.Add(QStringLiteral("../../etc/passwd"));
    FillRecordPictures(document, values, {.Folder = folder.path()});
    for (const auto& object : document.Objects())
        fuzz::Require(!object->IsContent() || object->Caption().size() <= content.size() + 1000,
                      "a text is no longer than what describes it");
    StreamRows(content);
    return 0;
}
