#pragma once

namespace vantrel {

class CardDocument;
class Session;

/// Makes the document form if it is not there: its place, the printer's page as its size, an empty
/// selection and the field menu.
void EnsureDocument(Session& session);

/// Fits the form to the page of the selected printer, by the kind of printer; at least 2000 twips
/// each way. Fails with `PrinterError` where the printer does not answer.
void SetSize(Session& session);

/// Asks for the page to be painted anew, as after a change of the back image.
void RePaint(CardDocument& document);

} // namespace vantrel
