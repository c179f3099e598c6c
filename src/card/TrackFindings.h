#pragma once

#include "card/Finding.h"

namespace vantrel {

class FieldValues;
struct LayoutParamsRecord;

/// What may stand on a magnetic track by ISO/IEC 7811, whatever printer writes it.
struct TrackStandard
{
    /// Characters of the track, with the start and end sentinels and the check character that the
    /// printer adds.
    int Length;
    /// The characters that data may consist of, with the separator.
    QLatin1StringView Characters;
};

/// Of these characters three are added by the printer.
inline constexpr int AddedToTrack = 3;

/// @param track  1 to 3
const TrackStandard& StandardOf(int track);

/// What is wrong with the data that the page's printer type encodes on its tracks: characters and
/// lengths that the standard forbids, formulas that cannot be evaluated. Nothing for a printer type
/// without a stripe.
/// @param values  of a record; without any only those parts of a formula count that need none
Findings FindingsOnTracks(const LayoutParamsRecord& params, const FieldValues& values);

} // namespace vantrel
