#pragma once

#include <QString>
#include <QStringList>

namespace vantrel {

/// @file What of the menus changes while the station runs, as plain state.

/// Menu entries that carry a tick.
enum class Tick {
    cmdDynamicLayout,
    chkAutoAdd,
    cmdCapEnable,
    chkAutoSpool,
    cmdMod10,
    cmdCodaBar,
    cmdEBTCheckDigit,
    cmdAutoMod10,
    cmdAutoCodaBar,
    cmdAutoEBT,
    cmdALeft,
    cmdACenter,
    cmdARight,
    cmdVisibleOnCard
};
inline constexpr int TickCount = 14;

/// Entries of `mnuProperties` that come and go with the object selected.
enum class ObjectEntry {
    cmdSetFont,
    cmdAdjustText,
    cmdFilters,
    cmdPreSuffix,
    cmdAdjustTextColor,
    fe4fy,
    mnuCheckDigits,
    ggd56456,
    mnuDataFields,
    mnuImage,
    cmdChooseImage,
    s250,
    mnuAlighment,
    mnuColors
};
inline constexpr int ObjectEntryCount = 14;

/// Menus that open at the pointer.
enum class PopUp { mnuFile, mnuData, mnuProperties, mnuDataFields, mnuBack, mnuAutoNumber };

/// The list of the last record's values as the menu shows it.
struct FieldMenu
{
    /// Captions from element 1 on, such as "Data Field 1        =      A".
    QStringList Captions;
    /// Whether the entry "Send a data stream..." shows.
    bool SendEntryVisible = true;
};

} // namespace vantrel
