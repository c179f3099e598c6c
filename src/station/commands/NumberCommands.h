#pragma once

namespace vantrel {

class CardDocument;
class CardObject;
class Session;

/// The automatic number that a command is about: the selected one, or the only one of the page if
/// none is selected. Null where there is none, or several.
CardObject* NumberAtHand(const CardDocument& document);

/// Asks for the number that the next card is to get, and stores it at once and durably, also while
/// the page has changes that are not saved. Asks, with No for Enter, before numbers would be given
/// that are on cards already. A number that was never saved is stored with its page. What is wrong
/// is told in a box.
void SetNumberCommand(Session& session);

} // namespace vantrel
