#pragma once

namespace vantrel {

class Session;

/// @file Commands that add a new object at a fixed position on the card, without selecting it. They
/// do nothing without an open layout. A failing step is skipped.
///
/// At a station with design tools the object comes in a free place and is selected; a data field
/// gets the next free number of a value, and the first card gets number 1 of an automatic number.

/// Each adds one object of the kind in its name.
void InsertDataField(Session& session);
void InsertText(Session& session);
void InsertImage(Session& session);
void InsertCameraImage(Session& session);
void InsertAutoNumber(Session& session);
/// Add a data field that is a QR code, and a rectangle, for a station with design tools.
void InsertCode(Session& session);
void InsertShape(Session& session);

} // namespace vantrel
