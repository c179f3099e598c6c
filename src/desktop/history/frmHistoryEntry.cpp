#include "card/FieldValues.h"
#include "desktop/controls/DesktopControls.h"
#include "desktop/history/DesktopRecordParts.h"
#include "desktop/history/frmHistory.h"
#include "station/ledger/FramingText.h"
#include "station/print/CardAsPrinted.h"
#include "station/session/Session.h"
#include <QEvent>
#include <QLabel>
#include <QListWidget>
#include <QTableWidget>

// What the history shows of the entry that is chosen.

namespace vantrel {

namespace {

constexpr QSize PictureRoom{320, 204};
constexpr int MostCardsDrawn = 20;

FieldValues ValuesOf(const LedgerEntry& entry)
{
    FieldValues values;
    for (const QString& value : entry.Values)
        values.Add(value);
    return values;
}

QString OneLine(const LedgerCard& card)
{
    QString text = QStringLiteral("Page %1").arg(card.Page);
    if (card.Copy > 1)
        text += QStringLiteral(", copy %1").arg(card.Copy);
    text += QStringLiteral(": ") + NameOf(card.State);
    if (!card.Numbers.isEmpty())
        text += QStringLiteral(", ") + ShownLine(card.Numbers.join(QStringLiteral(", ")));
    return text;
}

QString NoteOn(const HistoryCard& card, const CardAsPrinted& printed, bool hasValues)
{
    QStringList lines{card.Card.Layout, card.Card.Printer};
    if (!card.Card.File.isEmpty())
        lines += card.Card.File;
    if (card.Card.Job)
        lines += QStringLiteral("Job %1").arg(*card.Card.Job);
    if (!card.Card.Reason.isEmpty())
        lines += card.Card.Reason;
    if (!hasValues)
        lines +=
            QStringLiteral("The values of the record were not kept, so its card cannot be shown.");
    else if (card.Page.isEmpty())
        lines += QStringLiteral("The page was not kept, so its card cannot be shown.");
    if (!printed.Line.isEmpty())
        lines += QStringLiteral("Sent as a line:\n") + ShownLine(printed.Line);
    for (const QString& path : printed.MissingPictures)
        lines += QStringLiteral("This picture is not there any more: ") + path;
    if (printed.HasCameraPicture)
        lines += QStringLiteral("The camera picture that was on it is not kept.");
    return lines.join(u'\n');
}

} // namespace

void frmHistory::ShowLegend()
{
    for (auto* label : findChildren<QLabel*>(QStringLiteral("lblPart"))) {
        const auto part = static_cast<RecordPart>(label->property("part").toInt());
        const QTextCharFormat format = DesktopRecordParts::FormatOf(part, palette());
        QPalette colors = palette();
        if (format.hasProperty(QTextFormat::BackgroundBrush))
            colors.setColor(QPalette::Window, format.background().color());
        else
            colors.setColor(QPalette::Window, palette().color(QPalette::Base));
        colors.setColor(QPalette::WindowText, palette().color(QPalette::Text));
        label->setPalette(colors);
        QFont font = this->font();
        font.setBold(format.fontWeight() > QFont::Normal);
        font.setUnderline(format.fontUnderline());
        font.setStrikeOut(format.fontStrikeOut());
        font.setItalic(format.fontItalic());
        label->setFont(font);
        label->setText(MarkOf(part) + QStringLiteral("  ") + NameOf(part));
    }
}

void frmHistory::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        ShowLegend();
}

void frmHistory::ShowEntry(const std::optional<HistoryEntry>& entry)
{
    m_entry = entry;
    const HistoryEntry none;
    const HistoryEntry& shown = entry ? *entry : none;
    ShowRecord(shown);
    ShowCards(shown);
}

void frmHistory::ShowRecord(const HistoryEntry& entry)
{
    m_asText->Show(entry.Pieces);
    m_asHex->Show(entry.Pieces);
    QString told;
    if (entry.Entry.Id != 0 && !entry.Entry.HasValues)
        told = QStringLiteral("%1 bytes, not kept").arg(entry.Entry.Length);
    else if (entry.Entry.Id != 0 && entry.Entry.Length == 0)
        told = QStringLiteral("made at the station, without bytes");
    else if (entry.BytesTold < entry.Entry.Length)
        told =
            QStringLiteral("the first %1 of %2 bytes").arg(entry.BytesTold).arg(entry.Entry.Length);
    m_atCursor->setText(told);
}

void frmHistory::ShowCards(const HistoryEntry& entry)
{
    const FieldValues values = ValuesOf(entry.Entry);
    const bool hasValues = entry.Entry.HasValues;
    const PictureSource pictures = PicturesOf(entry.Entry.Framing, m_session.Pictures);
    std::vector<CardAsPrinted> printed;
    const QSignalBlocker quiet(m_cards);
    m_cards->clear();
    for (const HistoryCard& card : entry.Cards) {
        if (printed.size() < MostCardsDrawn)
            printed.push_back(
                DrawCardAsPrinted(hasValues ? card.Page : QString(), values, card.Card, pictures,
                                  (QSizeF(PictureRoom) * devicePixelRatioF()).toSize()));
        auto* item = new QListWidgetItem(OneLine(card.Card), m_cards);
        const CardAsPrinted& shown =
            m_cards->count() <= MostCardsDrawn ? printed.back() : CardAsPrinted();
        item->setData(Qt::UserRole, NoteOn(card, shown, hasValues));
        item->setData(Qt::UserRole + 1, shown.Picture);
    }
    m_cards->setCurrentRow(entry.Cards.empty() ? -1 : 0);
    ShowCard(m_cards->currentRow());
    ShowValues(entry, printed);
}

void frmHistory::ShowValues(const HistoryEntry& entry, const std::vector<CardAsPrinted>& cards)
{
    struct Line
    {
        int Value;
        ValueUse Use;
    };
    std::vector<Line> lines;
    for (int value = 1; value <= entry.Entry.Values.size(); ++value) {
        QStringList seen;
        for (const CardAsPrinted& card : cards) {
            for (const ValueUse& use : card.Uses) {
                const QString key = use.Object + u'\n' + use.Text;
                if (use.Value != value || seen.contains(key))
                    continue;
                seen += key;
                lines.push_back({value, use});
            }
        }
        if (seen.isEmpty())
            lines.push_back({value, {}});
    }
    m_values->setRowCount(static_cast<int>(lines.size()));
    for (int row = 0; row < m_values->rowCount(); ++row) {
        const Line& line = lines[static_cast<std::size_t>(row)];
        int column = 0;
        for (const QString& text :
             {QString::number(line.Value), entry.Entry.Values[line.Value - 1],
              line.Use.Object.isEmpty() ? QStringLiteral("none") : line.Use.Object, line.Use.Text})
            m_values->setItem(row, column++, new QTableWidgetItem(ShownLine(text)));
    }
}

void frmHistory::ShowCard(int row)
{
    const QListWidgetItem* item = m_cards->item(row);
    QImage picture = item != nullptr ? item->data(Qt::UserRole + 1).value<QImage>() : QImage();
    picture.setDevicePixelRatio(devicePixelRatioF());
    m_picture->setPixmap(QPixmap::fromImage(picture));
    m_picture->setVisible(!picture.isNull());
    m_picture->setAccessibleName(item != nullptr ? QStringLiteral("Card as it was printed")
                                                 : QString());
    m_cardNote->setText(item != nullptr ? item->data(Qt::UserRole).toString()
                                        : QStringLiteral("No card."));
}

} // namespace vantrel
