#include "LedgerViews.h"
#include "base/CodePage.h"
#include "base/HarmlessText.h"
#include <QDateTime>
#include <QStringDecoder>

namespace vantrel::admin {

namespace {

using Align = TextTable::Align;

/// Characters of an entry's values that a list looks at.
constexpr qsizetype LongestValues = 400;

constexpr TextTable::Column OfEntries[] = {
    {"ID", Align::Right},
    {"State"},
    {"Received"},
    {"Session", Align::Right},
    {"Source", Align::Left, 24},
    {"Layout", Align::Left, 24},
    {"Reprint of", Align::Right},
    {"Cards", Align::Right},
    {"Numbers", Align::Left, 24},
    {"Values", Align::Left, 48},
    {"Reason", Align::Left, 60},
};

constexpr TextTable::Column OfCounts[] = {
    {"Day"},
    {"Layout", Align::Left, 40},
    {"Issued", Align::Right},
    {"Failed", Align::Right},
    {"Doubtful", Align::Right},
    {"Void", Align::Right},
    {"Reprinted", Align::Right},
    {"Void numbers"},
};

constexpr TextTable::Column OfCards[] = {
    {"Layout"},
    {"Page", Align::Right},
    {"Copy", Align::Right},
    {"Printer"},
    {"Numbers"},
    {"Job or file"},
    {"State"},
    {"Changed"},
    {"Reason"},
};

constexpr TextTable::Column OfValues[] = {{"", Align::Right}, {"Value"}};

/// The machine's own time.
QString TimeText(qint64 time)
{
    return QDateTime::fromMSecsSinceEpoch(time).toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

QString NumberText(std::optional<qlonglong> number)
{
    return number ? QString::number(*number) : QString();
}

/// The first texts of a list, one after the other.
QString Beginning(const QStringList& texts)
{
    QString line;
    for (const QString& text : texts) {
        if (line.size() > LongestValues)
            break;
        line += (line.isEmpty() ? QString() : QStringLiteral(" | ")) +
                QStringView(text).left(LongestValues);
    }
    return line;
}

QStringList NumbersOf(const std::vector<LedgerCard>& cards)
{
    QStringList numbers;
    for (const LedgerCard& card : cards)
        numbers += card.Numbers;
    numbers.removeDuplicates();
    return numbers;
}

/// The bytes as characters: UTF-8 where they are that, otherwise code page 1252.
QString RecordText(const QByteArray& raw)
{
    QStringDecoder decoder(QStringDecoder::Utf8);
    QString text = decoder(raw);
    return decoder.hasError() ? FromCodePage(raw) : text;
}

void WriteCards(const std::vector<LedgerCard>& cards, const TextTable::Write& write)
{
    TextTable table(OfCards, write);
    for (const LedgerCard& card : cards)
        table.Add({card.Layout, QString::number(card.Page), QString::number(card.Copy),
                   card.Printer, card.Numbers.join(u' '),
                   card.Job ? QStringLiteral("job %1").arg(*card.Job) : card.File,
                   NameOf(card.State), TimeText(card.Changed), card.Reason});
    table.End();
}

void WriteValues(const QStringList& values, const TextTable::Write& write)
{
    TextTable table(OfValues, write);
    for (qsizetype value = 0; value < values.size(); ++value)
        table.Add({QString::number(value + 1), values.at(value)});
    table.End();
}

} // namespace

std::span<const TextTable::Column> EntryColumns()
{
    return OfEntries;
}

QStringList EntryRow(const LedgerEntry& entry)
{
    return {QString::number(entry.Id),
            NameOf(entry.State),
            TimeText(entry.Received),
            QString::number(entry.Session),
            entry.Source,
            entry.Layout,
            NumberText(entry.ReprintOf),
            QString::number(entry.Cards.size()),
            Beginning(NumbersOf(entry.Cards)),
            entry.HasValues ? Beginning(entry.Values) : QStringLiteral("(not kept)"),
            entry.Reason};
}

std::span<const TextTable::Column> CountColumns()
{
    return OfCounts;
}

QStringList CountRow(const LedgerCount& count)
{
    return {count.Day.toString(Qt::ISODate),  count.Layout,
            QString::number(count.Issued),    QString::number(count.Failed),
            QString::number(count.Doubtful),  QString::number(count.Void),
            QString::number(count.Reprinted), count.VoidNumbers.join(u' ')};
}

void WriteEntry(const LedgerEntry& entry, std::optional<qlonglong> reprint,
                const TextTable::Write& write)
{
    const auto tell = [&write](const char* name, const QString& text) {
        if (!text.isEmpty())
            write(QString(QString(QLatin1StringView(name)).leftJustified(14) + HarmlessText(text))
                      .toLocal8Bit() +
                  '\n');
    };
    tell("Entry", QString::number(entry.Id));
    tell("State", NameOf(entry.State));
    tell("Reason", entry.Reason);
    tell("Received", TimeText(entry.Received));
    tell("Session", QString::number(entry.Session));
    tell("Source", entry.Source);
    tell("Layout", entry.Layout);
    tell("Reprint of", NumberText(entry.ReprintOf));
    tell("Reprinted as", reprint == entry.Id ? QString() : NumberText(reprint));
    tell("Framing", entry.Framing);
    tell("Bytes", QString::number(entry.Length));
    tell("Record", RecordText(entry.Raw));
    tell("Hash", entry.Hash);
    if (entry.HasValues) {
        write("\n");
        WriteValues(entry.Values, write);
    } else {
        tell("Values", QStringLiteral("%1, not kept").arg(entry.ValueCount));
    }
    if (!entry.Cards.empty()) {
        write("\n");
        WriteCards(entry.Cards, write);
    }
}

} // namespace vantrel::admin
