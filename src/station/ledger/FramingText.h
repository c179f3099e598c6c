#pragma once

#include "card/RecordPicture.h"
#include "ports/Framing.h"

namespace vantrel {

/// @file The delimiters and filters in force for a record, as its entry in the ledger keeps them: a
/// JSON object.

QString FramingText(const Delimiters& delimiters, const Filters& filters);

/// The same of a row of a file, with where its pictures are. Its values are separated by commas.
QString FramingTextOfRow(const PictureSource& pictures);

/// Where the pictures of a record are by such a text; `usual` for a record of a host.
PictureSource PicturesOf(const QString& text, const PictureSource& usual);

/// The delimiters and filters of such a text.
struct KeptFraming
{
    vantrel::Delimiters Delimiters;
    vantrel::Filters Filters;
};
/// Of a text that is none, empty delimiters without filters.
KeptFraming ReadFraming(const QString& text);

} // namespace vantrel
