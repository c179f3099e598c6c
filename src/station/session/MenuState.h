#pragma once

#include "card/FieldValues.h"
#include <QString>

namespace vantrel {

/// @file The state of the menus that changes while the station runs.

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
    cmdVisibleOnCard,
    cmdFitWhole,
    cmdFitFilled,
    cmdFitStretched,
    cmdShowValues
};
inline constexpr int TickCount = 18;

/// Entries of `mnuProperties` whose visibility depends on the selected object.
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

/// Menus that can open at the pointer.
enum class PopUp { mnuFile, mnuData, mnuProperties, mnuDataFields, mnuBack, mnuAutoNumber };

/// The menu of the last record's values.
struct FieldMenu
{
    /// One entry for each value; captions are built on demand.
    FieldValues Values;
    /// Whether the entry "Send a data stream..." is visible.
    bool SendEntryVisible = true;

    /// Number of entries.
    int Count() const { return Values.Count(); }
    /// The caption of an entry, counted from 1, such as "Data Field 1        =      A".
    QString Caption(int number) const;
};

} // namespace vantrel
