#include "console/CardPictures.h"
#include "card/FieldValues.h"
#include "ledger/LedgerPages.h"
#include "ledger/LedgerReading.h"
#include "station/ledger/FramingText.h"
#include "station/print/CardAsPrinted.h"
#include "store/StoreDatabase.h"
#include <QBuffer>

namespace vantrel::console {

namespace {

constexpr qsizetype MostBytesKept = qsizetype{16} * 1024 * 1024;
/// A picture on the card may be put into its place or be removed meanwhile.
constexpr std::chrono::minutes KeptFor{5};
/// Twice a plastic card at 96 dots to the inch.
constexpr QSize Room{648, 648};
/// Little time is spent on making the file small: zlib's lowest level.
constexpr int QuickQuality = 85;

CardPictures::Drawn Without(const char* problem)
{
    return {{}, QString::fromLatin1(problem)};
}

QByteArray PngOf(const QImage& picture)
{
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, "PNG", QuickQuality);
    return png;
}

} // namespace

CardPictures::CardPictures() : m_kept(MostBytesKept) {}

CardPictures::Drawn CardPictures::Draw(StoreDatabase& database, qlonglong entry, qlonglong card,
                                       const PictureSource& usual)
{
    const QString key = QStringLiteral("%1/%2").arg(entry).arg(card);
    const auto now = std::chrono::steady_clock::now();
    if (const Kept* kept = m_kept.object(key); kept != nullptr && now - kept->DrawnAt < KeptFor)
        return {kept->Png, {}};
    const auto found = FindEntry(database, entry);
    if (!found || card > std::ssize(found->Cards))
        return Without("There is no such card.");
    if (!found->HasValues)
        return Without("The values of the record were not kept, so its card cannot be shown.");
    const LedgerCard& asked = found->Cards[static_cast<std::size_t>(card) - 1];
    const QString page = PageContent(database, asked.PageHash);
    if (page.isEmpty())
        return Without("The page was not kept, so its card cannot be shown.");
    FieldValues values;
    for (const QString& value : found->Values)
        values.Add(value);
    const CardAsPrinted printed =
        DrawCardAsPrinted(page, values, asked, PicturesOf(found->Framing, usual), Room);
    if (printed.Picture.isNull())
        return Without("The card was sent as a line and has no picture.");
    QByteArray png = PngOf(printed.Picture);
    m_kept.insert(key, new Kept{png, now}, png.size());
    return {std::move(png), {}};
}

} // namespace vantrel::console
