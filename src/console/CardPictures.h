#pragma once

#include "card/RecordPicture.h"
#include <QByteArray>
#include <QCache>
#include <QString>
#include <chrono>
#include <optional>

namespace vantrel {
class StoreDatabase;
}

namespace vantrel::console {

/// Pictures of cards as they were printed, drawn from the ledger. The last ones are kept for a few
/// minutes, since everybody who looks at the console asks for the same.
class CardPictures
{
public:
    CardPictures();

    /// The PNG of a card, whose number in its entry counts from 1.
    struct Drawn
    {
        /// Empty if there is none.
        QByteArray Png;
        /// Why there is none, one plain line.
        QString Problem;
    };
    /// Fails like `StoreDatabase`.
    /// @param usual  where the pictures are that values name
    Drawn Draw(StoreDatabase& database, qlonglong entry, qlonglong card,
               const PictureSource& usual);

private:
    struct Kept
    {
        QByteArray Png;
        std::chrono::steady_clock::time_point DrawnAt;
    };

    QCache<QString, Kept> m_kept;
};

} // namespace vantrel::console
