#pragma once

namespace vantrel {

class StationFace;
class FieldValues;
class Session;

/// Fills the values of the last record into the objects of the open page. If dynamic fields are on,
/// it first creates a field for each value, for one record only. A failing step is skipped; the
/// field then uses the value, prefix or suffix of the field before.
void ReapplyFieldValues(Session& session);

/// Rebuilds the menu of the last record's values.
void BuildFieldMenu(StationFace& face, const FieldValues& values);

} // namespace vantrel
