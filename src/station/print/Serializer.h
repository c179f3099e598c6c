#pragma once

#include <QString>

namespace vantrel {

class Session;

/// Builds the line of data for a printer type with serialized output: raises the automatic numbers
/// of the open page, then renders the layout's output stream with the values of the last record.
/// The result starts with one blank. A failing step is skipped.
QString BuildSerializerPattern(Session& session);

} // namespace vantrel
