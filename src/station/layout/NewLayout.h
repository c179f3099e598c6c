#pragma once

#include <QString>

namespace vantrel {

class Printers;
struct LayoutParamsRecord;
class Session;

/// Gives the parameters of a new layout: the current printer as a command printer, nothing encoded,
/// no back image. Orientation and copies keep what they were.
void ResetLayoutValues(LayoutParamsRecord& params, Printers& printers);

/// Begins a new layout of that name on an empty form. Nothing is stored before its first save. Does
/// nothing for an empty name.
void NewLayout(Session& session, const QString& name);

} // namespace vantrel
