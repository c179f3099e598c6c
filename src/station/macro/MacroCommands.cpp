#include "station/macro/MacroCommands.h"
#include "base/Failure.h"
#include "station/macro/MacroChoice.h"
#include "station/macro/MacroTable.h"
#include "station/session/Operator.h"
#include "station/session/Session.h"
#include "station/session/Settings.h"
#include <algorithm>
#include <functional>

namespace vantrel {

namespace {

/// @return whether the change was made; the reason is told if it was not
bool IsDone(Session& session, const QString& title, const std::function<void()>& change)
{
    try {
        change();
        return true;
    } catch (const Failure& failure) {
        session.Operator.MessageBox(failure.Text(), title, BoxIcon::Critical);
        return false;
    }
}

/// Asks for a name until `take` accepts it or the operator cancels. @return the accepted name
QString AskForName(Session& session, const QString& prompt, const QString& title, QString present,
                   const std::function<void(const QString& name)>& take)
{
    for (;;) {
        QString name = session.Operator.InputBox(prompt, title, present).trimmed();
        if (name.isEmpty())
            return {};
        if (IsDone(session, title, [&] { take(name); }))
            return name;
        present = name;
    }
}

void SetActive(Session& session, const QString& name)
{
    session.Settings.ActiveMacro = name;
    SaveSetting(session, SettingNumber::ActiveMacro, name);
}

QString RemoveQuestion(Session& session, const QString& name)
{
    QString question = QStringLiteral("Remove the macro (") + name + QStringLiteral(")?");
    const QList<MacroRow> macros = MacroRows(session.LayoutDb);
    const auto macro = std::ranges::find(macros, name, &MacroRow::Name);
    const qsizetype layouts =
        macro == macros.end() ? 0 : LayoutsGivenTo(session.LayoutDb, macro->Id).size();
    if (layouts == 1)
        question += QStringLiteral("\r\nIt names 1 layout, which stays.");
    else if (layouts > 1)
        question += QStringLiteral("\r\nIt names %1 layouts, which stay.").arg(layouts);
    if (session.Settings.ActiveMacro == name)
        question += QStringLiteral("\r\nIt is the active macro: records will print on the open "
                                   "layout only.");
    return question;
}

} // namespace

QString MakeMacro(Session& session)
{
    return AskForName(session, QStringLiteral("Name of the new macro"), QStringLiteral("New Macro"),
                      QString(), [&](const QString& name) { AddMacro(session.LayoutDb, name); });
}

QString RenameMacroOf(Session& session, const QString& name)
{
    QString newName =
        AskForName(session, QStringLiteral("New name of the macro"), QStringLiteral("Rename Macro"),
                   name, [&](const QString& asked) { RenameMacro(session.LayoutDb, name, asked); });
    if (!newName.isEmpty() && session.Settings.ActiveMacro == name)
        SetActive(session, newName);
    return newName;
}

bool RemoveMacroOf(Session& session, const QString& name)
{
    const QString title = QStringLiteral("Remove Macro?");
    if (!session.Operator.ShowAppMessage(RemoveQuestion(session, name), title,
                                         AppMessageButtons::NoYes) ||
        !IsDone(session, title, [&] { RemoveMacro(session.LayoutDb, name); }))
        return false;
    if (session.Settings.ActiveMacro == name)
        SetActive(session, QString());
    return true;
}

} // namespace vantrel
