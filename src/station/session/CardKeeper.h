#pragma once

#include <QString>
#include <cstdint>

namespace vantrel {

class CardDocument;
class Printer;

/// Keeps the account of a session's cards in place of its store and ledger, where the numbers of
/// many cards were taken beforehand. The pages are not saved then.
class CardKeeper
{
public:
    virtual ~CardKeeper() = default;

    /// Called before a page is drawn. Gives the automatic numbers of the document the values before
    /// those that the card shows, since printing raises them.
    /// @return false if the page must not be printed
    virtual bool Begin(const QString& layoutName, std::int16_t page, CardDocument& document) = 0;
    /// Called with what is not on the card as its layout has it, between `Begin` and `End`.
    virtual void Note(const QString& remark) = 0;
    /// Called when the page is drawn. Ends the printer's job; fails like `Printer`.
    virtual void End(Printer& printer) = 0;
};

} // namespace vantrel
