#include "station/macro/RunMacro.h"
#include "base/Convert.h"
#include "base/Skip.h"
#include "station/layout/FieldApplication.h"
#include "station/layout/LoadLayout.h"
#include "station/layout/RecordPage.h"
#include "station/print/PrintCard.h"
#include "station/session/Session.h"
#include "store/Recordset.h"
#include <QLoggingCategory>
#include <QStringList>

namespace vantrel {

namespace {

Q_LOGGING_CATEGORY(macroLog, "vantrel.macro", QtCriticalMsg)

std::int32_t MacroId(Connection& layoutDb, const QString& name)
{
    Recordset macros(layoutDb);
    // The name is inserted unescaped, so a name with an apostrophe is never found.
    macros.Open(QStringLiteral("SELECT [ID] FROM [Macros] WHERE [MacroName] = '") + name +
                QLatin1Char('\''));
    return ToLong(macros.Value(QStringLiteral("ID")));
}

/// Reads all names first, because no cursor may be open while the cards print. A row without a name
/// repeats the previous name.
QStringList LayoutsOfMacro(Connection& layoutDb, std::int32_t id)
{
    QStringList names;
    QString name;
    Recordset elements(layoutDb);
    elements.Open(QStringLiteral("SELECT * FROM [MacroElements] WHERE [MacroID] = ") +
                  QString::number(id));
    for (; !elements.IsEof(); elements.MoveNext()) {
        Skip("layout of a macro",
             [&] { name = ToText(elements.Value(QStringLiteral("LayoutName"))); });
        names.append(name);
    }
    return names;
}

void PrintBehind(Session& session, const QString& layoutName)
{
    const RecordPage record(session, {layoutName, 1});
    Skip("card", [&] { PrintCard(session, record.Page()); });
}

/// Also called for a layout that no longer exists.
void PrintOnLayout(Session& session, const QString& layoutName)
{
    qCDebug(macroLog).noquote() << "Macro Engine Layout =" << layoutName;
    if (PrintsBehindSurface(session)) {
        PrintBehind(session, layoutName);
        return;
    }
    Skip("load", [&] { LoadFirstPage(session, layoutName); });
    Skip("field application", [&] { ReapplyFieldValues(session); });
    Skip("card", [&] { PrintCard(session); });
    Skip("close", [&] { CloseLayout(session); });
}

} // namespace

void RunMacro(Session& session, const QString& name)
{
    std::int32_t id = 0;
    Skip("macro", [&] { id = MacroId(session.LayoutDb, name); });
    QStringList layoutNames;
    Skip("layouts of a macro", [&] { layoutNames = LayoutsOfMacro(session.LayoutDb, id); });
    for (const QString& layoutName : std::as_const(layoutNames))
        PrintOnLayout(session, layoutName);
}

} // namespace vantrel
