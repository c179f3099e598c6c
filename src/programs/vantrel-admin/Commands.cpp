#include "Commands.h"
#include "samples/DemoInstall.h"
#include "samples/FreshInstall.h"
#include "station/commands/SessionSwitch.h"
#include "station/macro/MacroTable.h"
#include "station/session/SettingsGuide.h"
#include "store/Connection.h"
#include <cstdio>

namespace vantrel::admin {

namespace {
void OpenIn(const QString& folder, Connection& store)
{
    store.Open(LayoutDatabasePath(folder));
}

void RunInit(const QStringList& arguments)
{
    MakeProgramFolder(arguments.at(0));
}

void RunDemo(const QStringList& arguments)
{
    MakeDemoFolder(arguments.at(0));
}

void RunSessionStart(const QStringList& arguments)
{
    SetSessionActive(arguments.at(0), arguments.at(1), true);
}

void RunSessionStop(const QStringList& arguments)
{
    SetSessionActive(arguments.at(0), arguments.at(1), false);
}

void RunMacroList(const QStringList& arguments)
{
    Connection store;
    OpenIn(arguments.at(0), store);
    for (const QString& name : MacroNames(store))
        std::fprintf(stdout, "%s\n", name.toLocal8Bit().constData());
}

void RunMacroAdd(const QStringList& arguments)
{
    Connection store;
    OpenIn(arguments.at(0), store);
    AddMacro(store, arguments.at(1));
}

void RunMacroRename(const QStringList& arguments)
{
    Connection store;
    OpenIn(arguments.at(0), store);
    RenameMacro(store, arguments.at(1), arguments.at(2));
}

void RunMacroRemove(const QStringList& arguments)
{
    Connection store;
    OpenIn(arguments.at(0), store);
    RemoveMacro(store, arguments.at(1));
}

void PrintSettings(const QStringList& /*arguments*/)
{
    std::fputs(SettingsGuide().toUtf8().constData(), stdout);
}

constexpr Command Table[] = {
    {"init", "DIR",
     "Makes DIR a program folder: an empty layout database and a SessionStatus.ini for session 1. "
     "A database that exists is never overwritten.",
     RunInit},
    {"demo", "DIR",
     "The same, with sample layouts, their pictures, and settings for "
     "session 1.",
     RunDemo},
    {"session start", "DIR SESSION", "Lets a session run; it is to be started behind it.",
     RunSessionStart},
    {"session stop", "DIR SESSION", "Tells a running session to end in order, and returns at once.",
     RunSessionStop},
    {"macro list", "DIR", "Prints the names of all macros, one a line.", RunMacroList},
    {"macro add", "DIR NAME", "Adds a macro. Its layouts are chosen in the station.", RunMacroAdd},
    {"macro rename", "DIR NAME NEW-NAME", "Gives a macro another name.", RunMacroRename},
    {"macro remove", "DIR NAME", "Removes a macro and its choice of layouts.", RunMacroRemove},
    {"settings", "", "Prints every key of the settings files, as Markdown.", PrintSettings},
};
} // namespace

std::span<const Command> Commands()
{
    return Table;
}

} // namespace vantrel::admin
