#include "ledger/LedgerTables.h"
#include "store/StoreDatabase.h"
#include <QJsonArray>
#include <QJsonDocument>

namespace vantrel {

namespace {

constexpr auto Text = StoreType::Text;
constexpr auto Whole = StoreType::Whole;
constexpr auto Bytes = StoreType::Bytes;
constexpr auto Counter = StoreType::Counter;
constexpr auto NotNull = StoreNull::Refused;

constexpr StoreColumnRow EntryColumns[] = {
    {"ID", Counter},
    {"State", Text, NotNull},
    {"Received", Whole, NotNull},
    {"SessionNumber", Whole, NotNull},
    {"ReprintOf", Whole},
    {"Length", Whole, NotNull},
    {"ValueCount", Whole, NotNull},
    {"Source", Text, NotNull},
    {"Layout", Text, NotNull},
    {"Reason", Text, NotNull},
    {"Hash", Text, NotNull},
    {"SearchText", Text, NotNull},
};

constexpr StoreIndex EntryIndexes[] = {
    {"LedgerEntriesState", "State, ID"},
    {"LedgerEntriesReceived", "Received"},
    {"LedgerEntriesReprint", "ReprintOf", "ReprintOf IS NOT NULL"},
};

// A record's bytes and values are written once and stand apart from the entry, whose row is written
// anew with each change of its state and is read by every search.
constexpr StoreColumnRow RecordColumns[] = {
    {"EntryID", Whole, StoreNull::Allowed, true},
    {"Framing", Text, NotNull},
    {"RecordValues", Text, NotNull},
    {"Raw", Bytes, NotNull},
};

constexpr StoreColumnRow CardColumns[] = {
    {"ID", Counter},
    {"EntryID", Whole, NotNull},
    {"State", Text, NotNull},
    {"Page", Whole, NotNull},
    {"Copy", Whole, NotNull},
    {"Job", Whole},
    {"Changed", Whole, NotNull},
    {"Layout", Text, NotNull},
    {"Printer", Text, NotNull},
    {"Numbers", Text, NotNull},
    {"PageHash", Text, NotNull},
    {"File", Text, NotNull},
    {"Reason", Text, NotNull},
};

constexpr StoreIndex CardIndexes[] = {
    {"LedgerCardsEntry", "EntryID"},
    {"LedgerCardsState", "State, ID"},
    // Jobs whose end was not seen, which are few.
    {"LedgerCardsOpenJob", "Job", "Job IS NOT NULL AND State = 'printed'"},
};

constexpr StoreColumnRow PageColumns[] = {
    {"Hash", Text, NotNull, true},
    {"Content", Text, NotNull},
};

constexpr StoreColumnRow StationColumns[] = {
    {"ID", Counter},
    {"Machine", Text, NotNull},
    {"SessionNumber", Whole, NotNull},
    {"Started", Whole, NotNull},
    {"Seen", Whole, NotNull},
    {"Ended", Whole, NotNull},
    {"Layout", Text, NotNull},
    {"Printer", Text, NotNull},
};

constexpr StoreIndex StationIndexes[] = {
    {"LedgerStationsSession", "Machine, SessionNumber", "", true},
};

constexpr StoreColumnRow PoolColumns[] = {
    {"EntryID", Whole, StoreNull::Allowed, true},
    {"Pool", Text, NotNull},
};

constexpr StoreTable Tables[] = {
    {"LedgerEntries", EntryColumns, EntryIndexes},      {"LedgerRecords", RecordColumns},
    {"LedgerCards", CardColumns, CardIndexes},          {"LedgerPages", PageColumns},
    {"LedgerStations", StationColumns, StationIndexes}, {"LedgerPools", PoolColumns},
};

/// Characters below it must be written as codes in JSON.
constexpr char16_t FirstPlainCode = 0x20;

} // namespace

std::span<const StoreTable> LedgerTables()
{
    return Tables;
}

bool HasLedger(StoreDatabase& database)
{
    return !database.ColumnsOf(QStringLiteral("LedgerEntries")).empty() &&
           !database.ColumnsOf(QStringLiteral("LedgerCards")).empty();
}

bool HasPools(StoreDatabase& database)
{
    return !database.ColumnsOf(QStringLiteral("LedgerPools")).empty();
}

void MakeLedgerTables(StoreDatabase& database)
{
    database.MakeTables(Tables);
}

void ListWriter::Add(QStringView text)
{
    if (m_text.size() > 1)
        m_text += u',';
    m_text += u'"';
    for (const QChar character : text) {
        const char16_t code = character.unicode();
        if (code == u'"' || code == u'\\') {
            m_text += u'\\';
            m_text += character;
        } else if (code < FirstPlainCode) {
            m_text += QStringLiteral("\\u%1").arg(code, 4, 16, QLatin1Char('0'));
        } else {
            m_text += character;
        }
    }
    m_text += u'"';
}

QString ListWriter::Text() const
{
    return m_text + u']';
}

QString ListText(const QStringList& list)
{
    ListWriter writer;
    for (const QString& text : list)
        writer.Add(text);
    return writer.Text();
}

QStringList ListOf(const QString& text)
{
    QStringList list;
    const QJsonArray array = QJsonDocument::fromJson(text.toUtf8()).array();
    for (const auto& value : array)
        list.append(value.toString());
    return list;
}

} // namespace vantrel
