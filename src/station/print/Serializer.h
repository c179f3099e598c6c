#pragma once

#include <QString>

namespace vantrel {

class Session;

/// Builds one serialized output for a layout whose printer takes a line of data: raises the
/// automatic numbers of the open page, then renders the layout's pattern with the values of the
/// last record. The result begins with one blank. A failing step is passed over.
QString BuildSerializerPattern(Session& session);

} // namespace vantrel
