#include "Commands.h"
#include "CheckCommand.h"
#include "LedgerCommands.h"
#include "Output.h"
#include "StoreCommands.h"
#include "samples/DemoInstall.h"
#include "samples/FreshInstall.h"
#include "samples/RecommendedSettings.h"
#include "station/commands/SessionSwitch.h"
#include "station/macro/MacroTable.h"
#include "station/session/SettingsGuide.h"
#include "station/session/StoreLocation.h"
#include "store/Connection.h"
#include <cstdio>

namespace vantrel::admin {

namespace {
constexpr const char* ExistingOption = "--existing";
constexpr Option NewOptions[] = {
    {ExistingOption, "", "sets the keys in a folder that is there, after a copy of its settings"}};

void OpenIn(const QString& folder, Connection& store)
{
    store.Open(StoreLocation(folder));
}

void RunInit(const Words& words)
{
    MakeProgramFolder(words.Arguments.at(0));
}

void RunNew(const Words& words)
{
    const QString folder = words.Arguments.at(0);
    if (!words.Has(ExistingOption)) {
        MakeRecommendedFolder(folder);
        return;
    }
    const QString copy = BackUpSettings(folder);
    SetRecommendedSettings(folder);
    QString told = QStringLiteral("Set in the section [Station]: %1. Sessions read it when they "
                                  "start.\n")
                       .arg(RecommendedKeys().join(QStringLiteral(", ")));
    if (!copy.isEmpty())
        told += QStringLiteral("The settings as they were: %1\n").arg(copy);
    WriteOutput(told.toLocal8Bit());
}

void RunDemo(const Words& words)
{
    MakeDemoFolder(words.Arguments.at(0));
}

void RunSessionStart(const Words& words)
{
    SetSessionActive(words.Arguments.at(0), words.Arguments.at(1), true);
}

void RunSessionStop(const Words& words)
{
    SetSessionActive(words.Arguments.at(0), words.Arguments.at(1), false);
}

void RunMacroList(const Words& words)
{
    Connection store;
    OpenIn(words.Arguments.at(0), store);
    for (const QString& name : MacroNames(store))
        std::fprintf(stdout, "%s\n", name.toLocal8Bit().constData());
}

void RunMacroAdd(const Words& words)
{
    Connection store;
    OpenIn(words.Arguments.at(0), store);
    AddMacro(store, words.Arguments.at(1));
}

void RunMacroRename(const Words& words)
{
    Connection store;
    OpenIn(words.Arguments.at(0), store);
    RenameMacro(store, words.Arguments.at(1), words.Arguments.at(2));
}

void RunMacroRemove(const Words& words)
{
    Connection store;
    OpenIn(words.Arguments.at(0), store);
    RemoveMacro(store, words.Arguments.at(1));
}

void PrintSettings(const Words& /*words*/)
{
    std::fputs(SettingsGuide().toUtf8().constData(), stdout);
}

constexpr Command Table[] = {
    {"init", "DIR",
     "Makes DIR a program folder: an empty layout database and a SessionStatus.ini for session 1. "
     "A database that exists is never overwritten.",
     RunInit},
    {"new", "DIR",
     "The same, with the settings recommended for a new station: every record is kept in the "
     "ledger "
     "and printed, and no number comes twice.",
     RunNew, NewOptions},
    {"demo", "DIR",
     "The same as new, with sample layouts, their pictures, and settings for "
     "session 1.",
     RunDemo},
    {"check", "DIR [LAYOUT...]",
     "Tells what would not print as it should on the pages of layouts, of all where none is named. "
     "Ends with 1 if there is any such thing.",
     RunCheck, JsonOptions},
    {"session start", "DIR SESSION", "Lets a session run; it is to be started behind it.",
     RunSessionStart},
    {"session stop", "DIR SESSION", "Tells a running session to end in order, and returns at once.",
     RunSessionStop},
    {"macro list", "DIR", "Prints the names of all macros, one a line.", RunMacroList},
    {"macro add", "DIR NAME", "Adds a macro. Its layouts are chosen in the station.", RunMacroAdd},
    {"macro rename", "DIR NAME NEW-NAME", "Gives a macro another name.", RunMacroRename},
    {"macro remove", "DIR NAME", "Removes a macro and its choice of layouts.", RunMacroRemove},
    {"ledger list", "DIR", "Prints the entries of the ledger, newest first.", RunLedgerList,
     ListOptions},
    {"ledger show", "DIR ID", "Prints all of one entry: its record, values and cards.",
     RunLedgerShow, JsonOptions},
    {"ledger reprint", "DIR ID",
     "Lets a running station print an entry again, with the numbers of its first print.",
     RunLedgerReprint, ReprintOptions},
    {"ledger void", "DIR ID",
     "Declares an entry and its cards void; one that waits is not printed.", RunLedgerVoid},
    {"ledger counts", "DIR",
     "Prints the cards issued, failed, doubtful, void and reprinted, by day and layout.",
     RunLedgerCounts, CountsOptions},
    {"ledger export", "DIR [FILE]",
     "Writes entries as CSV, a line for each card, into a file or on the standard output.",
     RunLedgerExport, ExportOptions},
    {"ledger purge", "DIR",
     "Removes finished entries for good, and everything of them from the database's files.",
     RunLedgerPurge, PurgeOptions},
    {"store init", "URL",
     "Makes the tables of a store that several stations share, in a PostgreSQL database, or brings "
     "them up to date.",
     RunStoreInit},
    {"store copy", "FROM TO",
     "Copies a whole store, each a folder or the address of a database, into one without layouts.",
     RunStoreCopy},
    {"store check", "DIR", "Tries the store that the stations of DIR use.", RunStoreCheck},
    {"settings", "", "Prints every key of the settings files, as Markdown.", PrintSettings},
};
} // namespace

std::span<const Command> Commands()
{
    return Table;
}

} // namespace vantrel::admin
