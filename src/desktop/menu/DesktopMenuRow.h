#pragma once

#include "station/session/MenuState.h"
#include <optional>
#include <span>

class QMainWindow;

namespace vantrel {

class Session;
struct StationOptions;

/// When an entry, or all entries of a menu, can be chosen.
enum class Enabled {
    Always,
    WhileVisible,
    WithLayout,
    WhileVisibleWithLayout,
    WithSelection,
    /// With a step of the designer that can be taken back, or taken again.
    WithStepBack,
    WithStepForward,
    /// With a selected object; unlike `WithSelection` for entries outside the object's own menus.
    WithObject,
    /// With a selected image or camera image.
    WithImage,
};

enum class RowKind { Menu, Command, Dash };

/// What a command does. A failure that leaves it ends the station.
using MenuAction = void (*)(Session& session, QMainWindow& window);

/// One row of the menu tree. Rows are in the order in which the tree shows them, each after the
/// menu that contains it.
struct MenuRow
{
    RowKind Kind;
    /// Name of the menu that contains it; empty for the menu bar.
    const char* Parent;
    /// Also the name of its `QAction` or `QMenu`; empty for most separators.
    const char* Name;
    const char* Caption = "";
    const char* Shortcut = "";
    /// None: the entry can be chosen and does nothing.
    MenuAction Action = nullptr;
    bool ShownAtStart = true;
    bool EnabledAtStart = true;
    Enabled When = Enabled::Always;
    std::optional<Tick> Ticked = {};
    /// Its place among the entries that follow the selected object, if it does.
    std::optional<ObjectEntry> Follows = {};
    /// Whether a station with these options has the row; without a condition every station has it.
    bool (*IsIn)(const StationOptions& options) = nullptr;
    /// What the entry does, when and with which further key, at a station with design tools; none
    /// if it is the same at all stations.
    MenuAction ToolAction = nullptr;
    Enabled ToolWhen = Enabled::Always;
    const char* ToolShortcut = "";

    constexpr MenuRow Hidden() const
    {
        MenuRow row = *this;
        row.ShownAtStart = false;
        return row;
    }
    constexpr MenuRow Disabled() const
    {
        MenuRow row = *this;
        row.EnabledAtStart = false;
        return row;
    }
    constexpr MenuRow On(Enabled when) const
    {
        MenuRow row = *this;
        row.When = when;
        return row;
    }
    constexpr MenuRow With(Tick tick) const
    {
        MenuRow row = *this;
        row.Ticked = tick;
        return row;
    }
    constexpr MenuRow With(ObjectEntry entry) const
    {
        MenuRow row = *this;
        row.Follows = entry;
        return row;
    }
    constexpr MenuRow WithTools(MenuAction action, Enabled when, const char* shortcut = "") const
    {
        MenuRow row = *this;
        row.ToolAction = action;
        row.ToolWhen = when;
        row.ToolShortcut = shortcut;
        return row;
    }
    constexpr MenuRow Where(bool (*isIn)(const StationOptions& options)) const
    {
        MenuRow row = *this;
        row.IsIn = isIn;
        return row;
    }
};

/// The whole menu tree, with the rows that only some stations have.
std::span<const MenuRow> MenuRows();

} // namespace vantrel
