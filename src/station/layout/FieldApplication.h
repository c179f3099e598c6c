#pragma once

namespace vantrel {

class StationFace;
class FieldValues;
class Session;

/// Pours the values of the last record into the objects of the open page. A failing step is passed
/// over, and what the object before left in hand carries over; with dynamic fields on it makes a
/// field for each value, once.
void ReapplyFieldValues(Session& session);

/// Rebuilds the list of the last record's values that the operator can choose from.
void BuildFieldMenu(StationFace& face, const FieldValues& values);

} // namespace vantrel
