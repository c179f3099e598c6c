#include "FuzzInput.h"
#include "printers/StationPrinters.h"
#include "station/commands/Version4Import.h"
#include "station/session/Operator.h"
#include "station/session/Session.h"
#include "station/session/UnattendedOperator.h"
#include <QFile>
#include <QTemporaryDir>

// For a version 4 session file of any bytes: the import ends, and the created objects can be
// measured.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace vantrel;
    static const QTemporaryDir folder;
    static const QString path = folder.filePath(QStringLiteral("Session.ini"));
    static UnattendedOperator stationOperator;
    static StationPrinters printers(folder.path(), 1);
    {
        QFile file(path);
        fuzz::Require(file.open(QIODevice::WriteOnly), "the file can be written");
        file.write(fuzz::Input(data, size).Rest());
    }
    Session session(folder.path(), stationOperator, printers);
    ImportVersion4Session(session, path);
    return 0;
}
