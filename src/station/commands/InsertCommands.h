#pragma once

namespace vantrel {

class Session;

/// @file The commands that put a new object onto the card, unselected, at a fixed place. They do
/// nothing without an open layout and pass over a step that fails.

void InsertDataField(Session& session);
void InsertText(Session& session);
void InsertImage(Session& session);
void InsertCameraImage(Session& session);
void InsertAutoNumber(Session& session);

} // namespace vantrel
