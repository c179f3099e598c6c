#pragma once

#include <QString>
#include <vector>

namespace vantrel {

/// What is not on a card as its layout has it, although the card was printed.
struct CardRemark
{
    /// A plain text without a full stop, such as "The picture {1}.jpg is missing". It names nothing
    /// of the record, since it is also told by stations that may not keep values.
    QString What;
    /// Why; may name values of the record. Empty if that is not known.
    QString Why;
};

using CardRemarks = std::vector<CardRemark>;

} // namespace vantrel
