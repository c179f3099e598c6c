#include "console/ConsoleStore.h"
#include "station/batch/FolderLedger.h"
#include "station/session/StationOptions.h"
#include <QDir>

namespace vantrel::console {

namespace {

/// How long a server may take for all that one question to the console needs. Everybody who asks
/// waits as long for one that stands still.
constexpr int PatienceMilliseconds = 10'000;

} // namespace

ConsoleStore::ConsoleStore(const QString& programFolder) : m_folder(programFolder)
{
    OpenFolderLedger(m_store, programFolder);
    // What is wrong with the options is told by the stations.
    QStringList mistakes;
    const StationOptions options = ReadStationOptions(programFolder, mistakes);
    if (!options.ImagesFrom.isEmpty())
        m_usual.Folder = QDir(programFolder).filePath(options.ImagesFrom);
    m_encoding = options.Encoding;
    // Whatever comes from now on is counted.
    m_metrics.Look(Database());
}

void ConsoleStore::BeginAnswer()
{
    Database().SetPatience(PatienceMilliseconds);
}

} // namespace vantrel::console
