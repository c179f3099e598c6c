#pragma once

#include <QList>
#include <QStringList>
#include <cstdint>

namespace vantrel {

class Connection;
struct StationSettings;
class Session;

/// @file How the operator gives a macro its layouts and picks the macro that records run. Steps
/// that fail are passed over: none of these fails.

/// A row of the list of macros.
struct MacroRow
{
    /// Key of the macro; 0 turns macros off.
    std::int32_t Id = 0;
    QString Name;
};

/// Text of the row that turns macros off.
inline constexpr QLatin1StringView DisableMacrosText{"Disable Macro Processing"};

/// All macros in the order of the store; the last row is the one that turns macros off.
QList<MacroRow> MacroRows(Connection& layoutDb);
/// Text of the row that stands for the present state.
QString ActiveMacroText(const StationSettings& settings);
/// The layouts the store has for a macro, those that are gone among them.
QStringList LayoutsGivenTo(Connection& layoutDb, std::int32_t id);
/// Makes the macro the active one, at once and for the next start, and replaces its layouts by
/// these. The row that turns macros off leaves all layouts as they are. A failure half-way leaves
/// the layouts written so far.
void SaveActiveMacro(Session& session, const MacroRow& macro, const QStringList& layouts);

} // namespace vantrel
