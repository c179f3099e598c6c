#include "FuzzInput.h"
#include "base/CsvLine.h"
#include "base/Failure.h"
#include "ledger/LedgerJson.h"
#include "ledger/LedgerTables.h"
#include "ports/TableReader.h"
#include "station/ledger/FramingText.h"
#include "store/postgres/OddValues.h"
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

// For any texts in the columns of the ledger: what cannot be read is empty, what was written is
// read as the same, and what programs get is JSON and CSV that hold the values.

namespace {

using namespace vantrel;

/// Lists and JSON hold characters; half a character, which no record and no store has, becomes
/// U+FFFD.
QString Sound(const QString& text)
{
    return QString::fromUtf8(text.toUtf8());
}

void ReadStored(const QString& text)
{
    const QStringList list = ListOf(text);
    fuzz::Require(ListOf(ListText(list)) == list, "a list is read as it was written");
    const KeptFraming framing = ReadFraming(text);
    const KeptFraming again = ReadFraming(FramingText(framing.Delimiters, framing.Filters));
    fuzz::Require(again.Delimiters.DataStart == framing.Delimiters.DataStart &&
                      again.Delimiters.DataSeperator == framing.Delimiters.DataSeperator &&
                      again.Delimiters.DataEnd == framing.Delimiters.DataEnd &&
                      again.Filters.Cr == framing.Filters.Cr &&
                      again.Filters.NewPage == framing.Filters.NewPage,
                  "framing is read as it was written");
    const PictureSource pictures = PicturesOf(text, {});
    const PictureSource back = PicturesOf(FramingTextOfRow(pictures), {});
    fuzz::Require(back.Folder == pictures.Folder && back.Columns == pictures.Columns,
                  "the place of pictures is read as it was written");
    OddValue(text);
}

void FitText(const QString& text, const QByteArray& type)
{
    const FittedValue fitted = FitValue(text, type);
    if (fitted.Odd.isEmpty())
        return;
    const QVariant read = OddValue(fitted.Odd);
    if (read.typeId() == QMetaType::QString)
        fuzz::Require(read.toString() == text, "a text that does not fit comes back");
}

QStringList ReadRow(const QByteArray& bytes)
{
    TableReader reader(ReadFrom(bytes), {});
    QStringList values;
    fuzz::Require(reader.Next(values), "a line of an export is a row");
    return values;
}

void WriteForPrograms(const QStringList& values, const QByteArray& raw)
{
    LedgerEntry entry;
    entry.Id = 7;
    entry.Values = values;
    entry.ValueCount = static_cast<int>(values.size());
    entry.Raw = raw;
    entry.Source = values.value(0);
    entry.Framing = values.value(1);
    LedgerCard card;
    card.Layout = values.value(0);
    card.Numbers = values;
    entry.Cards.push_back(card);
    for (const QByteArray& json : {LedgerEntryJson(entry), LedgerWholeEntryJson(entry)}) {
        const QJsonObject read = QJsonDocument::fromJson(json).object();
        QStringList back;
        for (const auto& value : read.value(u"values").toArray())
            back += value.toString();
        fuzz::Require(back == values, "programs get the values");
        fuzz::Require(read.value(u"cards").toArray().size() == 1, "programs get the cards");
    }
    CsvLine line;
    // A first value keeps an empty line from being one without values.
    line.Add(QStringLiteral("7"));
    for (const QString& value : values)
        line.Add(value);
    QStringList row = ReadRow(line.Bytes() + "\r\n");
    row.removeFirst();
    fuzz::Require(row == values, "a line of an export holds the values");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::Input input(data, size);
    const QByteArray bytes = input.Rest();
    const QString text = Sound(QString::fromUtf8(bytes));
    ReadStored(text);
    for (const char* type : {"TEXT", "INTEGER", "REAL", "BLOB"})
        FitText(text, type);
    QStringList values;
    while (!input.IsEmpty() && values.size() < 1000)
        values += input.Line();
    fuzz::Require(ListOf(ListText(values)) == values, "values are read as they were written");
    WriteForPrograms(values, bytes);
    return 0;
}
