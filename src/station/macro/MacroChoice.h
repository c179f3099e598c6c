#pragma once

#include <QList>
#include <QStringList>
#include <cstdint>

namespace vantrel {

class Connection;
struct StationSettings;
class Session;

/// @file Choosing the layouts of a macro and the macro that records run. Failing steps are skipped,
/// so none of these functions fails.

/// A row of the list of macros.
struct MacroRow
{
    /// Key of the macro; 0 for the row that turns macros off.
    std::int32_t Id = 0;
    QString Name;
};

/// Text of the row that turns macros off.
inline constexpr QLatin1StringView DisableMacrosText{"Disable Macro Processing"};

/// All macros in the order of the database, followed by the row that turns macros off.
QList<MacroRow> MacroRows(Connection& layoutDb);
/// Text of the row of the active macro, or of the row that turns macros off.
QString ActiveMacroText(const StationSettings& settings);
/// The layouts of a macro, including layouts that no longer exist.
QStringList LayoutsGivenTo(Connection& layoutDb, std::int32_t id);
/// Makes the macro active, now and after the next start, and replaces its layouts. The row that
/// turns macros off changes no layouts. If a step fails, the layouts written so far stay.
void SaveActiveMacro(Session& session, const MacroRow& macro, const QStringList& layouts);

} // namespace vantrel
