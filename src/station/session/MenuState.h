#pragma once

#include "card/FieldValues.h"
#include <QString>

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
    /// One element for each; made to captions only where somebody looks.
    FieldValues Values;
    /// Whether the entry "Send a data stream..." shows.
    bool SendEntryVisible = true;

    int Count() const { return Values.Count(); }
    /// The caption of an element from 1 on, such as "Data Field 1        =      A".
    QString Caption(int number) const;
};

} // namespace vantrel
