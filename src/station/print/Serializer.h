#pragma once

#include "store/ColumnReader.h"
#include <QString>
#include <vector>

namespace vantrel {

class FieldValues;
class Session;
struct LayoutPage;

/// Builds the line of data for a printer type with serialized output: raises the automatic numbers
/// of the page, then renders the layout's output stream with the values of the last record.
/// The result starts with one blank. A failing step is skipped.
QString BuildSerializerPattern(Session& session, const LayoutPage& page);
/// Likewise for the surface.
QString BuildSerializerPattern(Session& session);

/// The same output from the rows of a stream, without raising numbers. Never fails.
/// @param filter  characters that are removed from the values of data fields
QString RenderStream(const std::vector<ColumnReader>& rows, const QString& filter,
                     const FieldValues& values);

} // namespace vantrel
