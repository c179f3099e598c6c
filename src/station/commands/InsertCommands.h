#pragma once

namespace vantrel {

class Session;

/// @file Commands that add a new object at a fixed position on the card, without selecting it. They
/// do nothing without an open layout. A failing step is skipped.

/// Each adds one object of the kind in its name.
void InsertDataField(Session& session);
void InsertText(Session& session);
void InsertImage(Session& session);
void InsertCameraImage(Session& session);
void InsertAutoNumber(Session& session);

} // namespace vantrel
