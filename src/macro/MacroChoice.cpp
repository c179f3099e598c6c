#include "macro/MacroChoice.h"
#include "app/Session.h"
#include "app/Settings.h"
#include "layout/StoredValue.h"
#include "platform/Convert.h"
#include "platform/Recordset.h"
#include "platform/Skip.h"

namespace vantrel {

namespace {

/// Insertion makes the order of the chain, so that it is the order of these names.
void ReplaceLayouts(Session& session, std::int32_t id, const QStringList& layouts)
{
    Recordset rows(session.LayoutDb);
    rows.Open(QStringLiteral("SELECT * FROM [MacroElements] WHERE [MacroID] = ") +
                  QString::number(id),
              CursorLock::Optimistic);
    for (; !rows.IsEof(); rows.MoveNext())
        rows.Delete();
    for (const QString& layout : layouts) {
        rows.AddNew();
        rows.SetValue(QStringLiteral("LayoutName"), layout);
        rows.SetValue(QStringLiteral("MacroID"), id);
        rows.Update();
    }
}

} // namespace

QList<MacroRow> MacroRows(Session& session)
{
    QList<MacroRow> macros;
    Skip("macros", [&] {
        Recordset rows(session.LayoutDb);
        rows.Open(QStringLiteral("SELECT [ID], [MacroName] FROM [Macros]"));
        for (; !rows.IsEof(); rows.MoveNext())
            macros.append({StoredLong(rows.Value(QStringLiteral("ID"))),
                           JoinedText(rows.Value(QStringLiteral("MacroName")))});
    });
    macros.append({0, DisableMacrosText});
    return macros;
}

QString ActiveMacroText(const Session& session)
{
    const QString& active = session.Settings.ActiveMacro;
    return active.isEmpty() ? QString(DisableMacrosText) : active;
}

QStringList LayoutsGivenTo(Session& session, std::int32_t id)
{
    QStringList layouts;
    Skip("layouts of a macro", [&] {
        Recordset rows(session.LayoutDb);
        rows.Open(QStringLiteral("SELECT [LayoutName] FROM [MacroElements] WHERE [MacroID] = ") +
                  QString::number(id));
        for (; !rows.IsEof(); rows.MoveNext())
            layouts.append(JoinedText(rows.Value(QStringLiteral("LayoutName"))));
    });
    return layouts;
}

void SaveActiveMacro(Session& session, const MacroRow& macro, const QStringList& layouts)
{
    QString& active = session.Settings.ActiveMacro;
    if (macro.Id == 0) {
        active.clear();
    } else {
        Skip("replace the layouts of a macro", [&] { ReplaceLayouts(session, macro.Id, layouts); });
        active = macro.Name;
    }
    SaveSetting(session, SettingNumber::ActiveMacro, active);
}

} // namespace vantrel
