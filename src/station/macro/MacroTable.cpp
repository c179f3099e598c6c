#include "station/macro/MacroTable.h"
#include "base/CodePage.h"
#include "base/Failure.h"
#include "base/Profile.h"
#include "station/macro/MacroChoice.h"
#include "store/Connection.h"
#include "store/Recordset.h"
#include <algorithm>

namespace vantrel {

namespace {
const QString IdColumn = QStringLiteral("ID");
const QString NameColumn = QStringLiteral("MacroName");

[[noreturn]] void Refuse(const QString& why)
{
    throw Failure(FailureNumber::InvalidCall, why);
}

/// A macro's name is inserted into a statement and stored in the settings file. A name that is not
/// valid in both could be listed but never run.
void RequireUsableName(const QString& name)
{
    if (name.isEmpty())
        Refuse(QStringLiteral("A macro needs a name."));
    if (name != name.trimmed())
        Refuse(QStringLiteral("A macro's name cannot begin or end with a blank."));
    if (name.contains(u'\''))
        Refuse(QStringLiteral("A macro's name cannot hold an apostrophe: the station could not "
                              "look it up."));
    if (name == DisableMacrosText)
        Refuse(QStringLiteral("A macro cannot be named like the row that turns macros off."));
    if (name.startsWith(u'"') && name.endsWith(u'"'))
        Refuse(QStringLiteral("A macro's name cannot stand in quotes."));
    if (name.size() > ProfileValueLimit)
        Refuse(QStringLiteral("A macro's name cannot be longer than %1 characters.")
                   .arg(ProfileValueLimit));
    if (std::any_of(name.begin(), name.end(),
                    [](QChar c) { return c.category() == QChar::Other_Control; }))
        Refuse(QStringLiteral("A macro's name cannot hold control characters."));
    if (FromCodePage(ToCodePage(name)) != name)
        Refuse(QStringLiteral("A macro's name cannot hold characters outside of code page 1252."));
}

/// Moves a cursor over all macros to the one of that name. @return false if there is none
bool Find(Recordset& macros, const QString& name)
{
    macros.Open(QStringLiteral("SELECT * FROM [Macros]"), CursorLock::Optimistic);
    for (; !macros.IsEof(); macros.MoveNext())
        if (macros.Value(NameColumn).toString() == name)
            return true;
    return false;
}

void RequireFound(Recordset& macros, const QString& name)
{
    if (!Find(macros, name))
        throw Failure(FailureNumber::ItemNotFound,
                      QStringLiteral("There is no macro named %1.").arg(name));
}

void RequireFree(Recordset& macros, const QString& name)
{
    if (Find(macros, name))
        Refuse(QStringLiteral("There is a macro named %1 already.").arg(name));
}

qlonglong NextId(Connection& connection)
{
    qlonglong highest = 0;
    Recordset macros(connection);
    for (macros.Open(QStringLiteral("SELECT [ID] FROM [Macros]")); !macros.IsEof();
         macros.MoveNext())
        highest = std::max(highest, macros.Value(IdColumn).toLongLong());
    return highest + 1;
}

/// Changes the tables under the write lock. `change` must check everything before its first write,
/// because the commit after a failure only releases the lock.
template <typename Change>
void InTransaction(Connection& connection, Change&& change)
{
    connection.BeginTrans();
    try {
        change();
    } catch (const Failure&) {
        connection.CommitTrans();
        throw;
    }
    connection.CommitTrans();
}
} // namespace

QStringList MacroNames(Connection& connection)
{
    QStringList names;
    Recordset macros(connection);
    for (macros.Open(QStringLiteral("SELECT [ID], [MacroName] FROM [Macros]")); !macros.IsEof();
         macros.MoveNext())
        names.append(macros.Value(NameColumn).toString());
    return names;
}

void AddMacro(Connection& connection, const QString& name)
{
    RequireUsableName(name);
    InTransaction(connection, [&] {
        Recordset macros(connection);
        RequireFree(macros, name);
        const qlonglong id = NextId(connection);
        macros.AddNew();
        macros.SetValue(IdColumn, id);
        macros.SetValue(NameColumn, name);
        macros.Update();
    });
}

void RenameMacro(Connection& connection, const QString& oldName, const QString& newName)
{
    RequireUsableName(newName);
    InTransaction(connection, [&] {
        Recordset macros(connection);
        if (newName != oldName)
            RequireFree(macros, newName);
        RequireFound(macros, oldName);
        macros.SetValue(NameColumn, newName);
        macros.Update();
    });
}

void RemoveMacro(Connection& connection, const QString& name)
{
    InTransaction(connection, [&] {
        Recordset macros(connection);
        RequireFound(macros, name);
        Recordset elements(connection);
        elements.Open(QStringLiteral("SELECT * FROM [MacroElements] WHERE [MacroID] = ") +
                          macros.Value(IdColumn).toString(),
                      CursorLock::Optimistic);
        for (; !elements.IsEof(); elements.MoveNext())
            elements.Delete();
        macros.Delete();
    });
}

} // namespace vantrel
