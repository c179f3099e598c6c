#include "station/macro/MacroChoice.h"
#include "base/Convert.h"
#include "base/Skip.h"
#include "station/session/Session.h"
#include "station/session/Settings.h"
#include "store/Recordset.h"
#include "store/StoredValue.h"

namespace vantrel {

namespace {

/// Replaces the layouts of a macro. They run in the order of insertion, which is the order of these
/// names.
void ReplaceLayouts(Connection& layoutDb, std::int32_t id, const QStringList& layouts)
{
    Recordset rows(layoutDb);
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

QList<MacroRow> MacroRows(Connection& layoutDb)
{
    QList<MacroRow> macros;
    Skip("macros", [&] {
        Recordset rows(layoutDb);
        rows.Open(QStringLiteral("SELECT [ID], [MacroName] FROM [Macros]"));
        for (; !rows.IsEof(); rows.MoveNext())
            macros.append({StoredLong(rows.Value(QStringLiteral("ID"))),
                           JoinedText(rows.Value(QStringLiteral("MacroName")))});
    });
    macros.append({0, DisableMacrosText});
    return macros;
}

QString ActiveMacroText(const StationSettings& settings)
{
    const QString& active = settings.ActiveMacro;
    return active.isEmpty() ? QString(DisableMacrosText) : active;
}

QStringList LayoutsGivenTo(Connection& layoutDb, std::int32_t id)
{
    QStringList layouts;
    Skip("layouts of a macro", [&] {
        Recordset rows(layoutDb);
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
        Skip("replace the layouts of a macro",
             [&] { ReplaceLayouts(session.LayoutDb, macro.Id, layouts); });
        active = macro.Name;
    }
    SaveSetting(session, SettingNumber::ActiveMacro, active);
}

} // namespace vantrel
