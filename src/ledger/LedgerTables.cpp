#include "ledger/LedgerTables.h"
#include "store/StoreDatabase.h"
#include <QJsonArray>
#include <QJsonDocument>

namespace vantrel {

namespace {

// A record's bytes and values are written once and stand apart from the entry, whose row is written
// anew with each change of its state and is read by every search.
constexpr const char* Statements[] = {
    "CREATE TABLE IF NOT EXISTS LedgerEntries ("
    "ID INTEGER PRIMARY KEY AUTOINCREMENT, "
    "State TEXT NOT NULL, "
    "Received INTEGER NOT NULL, "
    "SessionNumber INTEGER NOT NULL, "
    "ReprintOf INTEGER, "
    "Length INTEGER NOT NULL, "
    "ValueCount INTEGER NOT NULL, "
    "Source TEXT NOT NULL, "
    "Layout TEXT NOT NULL, "
    "Reason TEXT NOT NULL, "
    "Hash TEXT NOT NULL, "
    "SearchText TEXT NOT NULL)",
    "CREATE TABLE IF NOT EXISTS LedgerRecords ("
    "EntryID INTEGER PRIMARY KEY, "
    "Framing TEXT NOT NULL, "
    "RecordValues TEXT NOT NULL, "
    "Raw BLOB NOT NULL)",
    "CREATE INDEX IF NOT EXISTS LedgerEntriesState ON LedgerEntries (State, ID)",
    "CREATE INDEX IF NOT EXISTS LedgerEntriesReceived ON LedgerEntries (Received)",
    "CREATE INDEX IF NOT EXISTS LedgerEntriesReprint ON LedgerEntries (ReprintOf) "
    "WHERE ReprintOf IS NOT NULL",
    "CREATE TABLE IF NOT EXISTS LedgerCards ("
    "ID INTEGER PRIMARY KEY AUTOINCREMENT, "
    "EntryID INTEGER NOT NULL, "
    "State TEXT NOT NULL, "
    "Page INTEGER NOT NULL, "
    "Copy INTEGER NOT NULL, "
    "Job INTEGER, "
    "Changed INTEGER NOT NULL, "
    "Layout TEXT NOT NULL, "
    "Printer TEXT NOT NULL, "
    "Numbers TEXT NOT NULL, "
    "PageHash TEXT NOT NULL, "
    "File TEXT NOT NULL, "
    "Reason TEXT NOT NULL)",
    "CREATE INDEX IF NOT EXISTS LedgerCardsEntry ON LedgerCards (EntryID)",
    "CREATE INDEX IF NOT EXISTS LedgerCardsState ON LedgerCards (State, ID)",
    // Jobs whose end was not seen, which are few.
    "CREATE INDEX IF NOT EXISTS LedgerCardsOpenJob ON LedgerCards (Job) "
    "WHERE Job IS NOT NULL AND State = 'printed'",
    "CREATE TABLE IF NOT EXISTS LedgerPages ("
    "Hash TEXT NOT NULL PRIMARY KEY, "
    "Content TEXT NOT NULL)",
    "CREATE TABLE IF NOT EXISTS LedgerStations ("
    "ID INTEGER PRIMARY KEY AUTOINCREMENT, "
    "Machine TEXT NOT NULL, "
    "SessionNumber INTEGER NOT NULL, "
    "Started INTEGER NOT NULL, "
    "Seen INTEGER NOT NULL, "
    "Ended INTEGER NOT NULL, "
    "Layout TEXT NOT NULL, "
    "Printer TEXT NOT NULL, "
    "UNIQUE (Machine, SessionNumber))",
};

/// Characters below it must be written as codes in JSON.
constexpr char16_t FirstPlainCode = 0x20;

} // namespace

bool HasLedger(StoreDatabase& database)
{
    return !database.KeyColumn(QStringLiteral("LedgerEntries")).isEmpty() &&
           !database.KeyColumn(QStringLiteral("LedgerCards")).isEmpty();
}

void MakeLedgerTables(StoreDatabase& database)
{
    for (const char* statement : Statements)
        database.Execute(QLatin1StringView(statement));
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
