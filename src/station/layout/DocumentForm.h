#pragma once

namespace vantrel {

class CardDocument;
class Session;
struct LayoutPage;

/// Creates the document form if it does not exist, with its position, the size of the printer's
/// page, no selection and the field menu. A failing step is skipped.
void EnsureDocument(Session& session);
/// Likewise for a page that may be behind the surface, which has no field menu.
void EnsureDocument(Session& session, LayoutPage& page);
/// The document form of the session, created like `EnsureDocument` if it does not exist.
CardDocument& OpenForm(Session& session);

/// Sets the size of the form according to the printer type, usually to the page of the selected
/// printer, and to at least 2000 twips in each direction. Fails with `PrinterError` if the printer
/// cannot be queried.
void SetSize(Session& session);
void SetSize(Session& session, LayoutPage& page);

/// Requests a repaint of the page, for example after a change of the back image.
void RePaint(CardDocument& document);

} // namespace vantrel
