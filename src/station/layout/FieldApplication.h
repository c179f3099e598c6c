#pragma once

namespace vantrel {

class StationFace;
class FieldValues;
class Session;
struct LayoutPage;

/// Fills the values of the last record into the objects of the open page. If dynamic fields are on,
/// it first creates a field for each value, for one record only. A failing step is skipped; the
/// field then uses the value, prefix or suffix of the field before.
void ReapplyFieldValues(Session& session);
/// Fills a page on which a record prints. Behind the surface it does this and no more.
void ReapplyFieldValues(Session& session, LayoutPage& page);
/// Fills a page that the operator has opened on the surface. Where records print behind it, its
/// fields and images keep their names and samples, and only the check digits of its numbers and the
/// camera's picture are filled in.
void FillSurface(Session& session);
/// Makes the fields on the surface that the record in hand is to create, if that is set, where
/// records print behind the surface. It is one step of the designer. The surface is otherwise left
/// as it is; the values of the last record are in `session.FieldValues`.
void MakeFieldsOnSurface(Session& session);

/// Rebuilds the menu of the last record's values.
void BuildFieldMenu(StationFace& face, const FieldValues& values);

} // namespace vantrel
