#pragma once

#include <QString>

namespace vantrel {

class Printers;
struct LayoutParamsRecord;
class Session;

/// Sets the parameters of a new layout: the current printer as a command printer, no encoding, no
/// back image. Orientation and copies are unchanged.
void ResetLayoutValues(LayoutParamsRecord& params, Printers& printers);

/// Starts a new layout on an empty form. Nothing is stored before its first save. Does nothing for
/// an empty name.
void NewLayout(Session& session, const QString& name);

} // namespace vantrel
