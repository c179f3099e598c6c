#pragma once

namespace vantrel {

class PageCanvas;
class Session;

/// Makes the document form if it is not there: its place, the printer's page as its size, an empty
/// selection and the field menu.
void EnsureDocument(Session& session);

/// Fits the form to the page of the selected printer, by the kind of printer; at least 2000 twips
/// each way. Fails with `PrinterError` where the printer does not answer.
void SetSize(Session& session);

/// Hides or shows the grips; where there is a selected object they are first placed around the
/// drag's rectangle, its box in twips.
void ShowHandles(Session& session, bool show);

/// Asks for the page to be painted anew, as after a change of the back image.
void RePaint(Session& session);

/// Paints the page as it prints: back image, then the objects in stacking order. Grips and
/// templates are not painted.
void PaintDocument(const Session& session, PageCanvas& canvas);

} // namespace vantrel
