#include "ledger/LedgerJson.h"
#include "ledger/LedgerTables.h"
#include <QDateTime>
#include <QJsonDocument>
#include <utility>

namespace vantrel {

namespace {

QByteArray ListJson(const QStringList& list)
{
    return ListText(list).toUtf8();
}

/// A text with its quotes: the list of it alone without the brackets.
QByteArray TextJson(const QString& text)
{
    const QByteArray list = ListJson({text});
    return list.mid(1, list.size() - 2);
}

/// A text, or null for none.
QByteArray TextOrNull(const QString& text)
{
    return text.isEmpty() ? QByteArrayLiteral("null") : TextJson(text);
}

template <typename Number>
QByteArray NumberOrNull(const std::optional<Number>& number)
{
    return number ? QByteArray::number(*number) : QByteArrayLiteral("null");
}

/// A JSON object whose keys stay in their order; `QJsonObject` sorts them.
class ObjectJson
{
public:
    void Add(const char* key, const QByteArray& json)
    {
        m_json += m_json.isEmpty() ? "{\"" : ", \"";
        m_json += key;
        m_json += "\": ";
        m_json += json;
    }
    void Add(const char* key, const QString& text) { Add(key, TextJson(text)); }
    void Add(const char* key, qlonglong number) { Add(key, QByteArray::number(number)); }
    QByteArray Ended() const { return m_json + '}'; }

private:
    QByteArray m_json;
};

QByteArray CardJson(const LedgerCard& card)
{
    ObjectJson json;
    json.Add("layout", card.Layout);
    json.Add("page", card.Page);
    json.Add("copy", card.Copy);
    json.Add("printer", card.Printer);
    json.Add("numbers", ListJson(card.Numbers));
    json.Add("job", NumberOrNull(card.Job));
    json.Add("file", TextOrNull(card.File));
    json.Add("state", NameOf(card.State));
    json.Add("reason", card.Reason);
    json.Add("changed", LedgerTimeText(card.Changed));
    return json.Ended();
}

QByteArray CardsJson(const std::vector<LedgerCard>& cards)
{
    QByteArray json = "[";
    for (const LedgerCard& card : cards)
        json += (json.size() > 1 ? ", " : "") + CardJson(card);
    return json + ']';
}

ObjectJson EntryJson(const LedgerEntry& entry)
{
    ObjectJson json;
    json.Add("id", entry.Id);
    json.Add("state", NameOf(entry.State));
    json.Add("received", LedgerTimeText(entry.Received));
    json.Add("session", entry.Session);
    json.Add("source", entry.Source);
    json.Add("values", entry.HasValues ? ListJson(entry.Values) : QByteArrayLiteral("null"));
    json.Add("reprint_of", NumberOrNull(entry.ReprintOf));
    json.Add("cards", CardsJson(entry.Cards));
    json.Add("layout", entry.Layout);
    json.Add("reason", entry.Reason);
    json.Add("length", entry.Length);
    json.Add("value_count", entry.ValueCount);
    json.Add("hash", TextOrNull(entry.Hash));
    return json;
}

} // namespace

QString LedgerTimeText(qint64 time)
{
    // The releases of Qt have no common way to name UTC in a time.
    static const QDateTime epoch = QDateTime::fromMSecsSinceEpoch(0).toUTC();
    return epoch.addMSecs(time).toString(Qt::ISODateWithMs);
}

QByteArray LedgerEntryJson(const LedgerEntry& entry)
{
    return EntryJson(entry).Ended();
}

QByteArray LedgerWholeEntryJson(const LedgerEntry& entry)
{
    ObjectJson json = EntryJson(entry);
    const QByteArray none = QByteArrayLiteral("null");
    // The framing is stored as JSON. Anything else, from a damaged store, would spoil the whole.
    const QByteArray framing = entry.Framing.toUtf8();
    json.Add("framing", QJsonDocument::fromJson(framing).isObject() ? framing : none);
    json.Add("raw", entry.HasValues ? '"' + entry.Raw.toBase64() + '"' : none);
    return json.Ended();
}

QByteArray LedgerCountJson(const LedgerCount& count)
{
    ObjectJson json;
    json.Add("day", count.Day.toString(Qt::ISODate));
    json.Add("layout", count.Layout);
    json.Add("issued", count.Issued);
    json.Add("failed", count.Failed);
    json.Add("doubtful", count.Doubtful);
    json.Add("void", count.Void);
    json.Add("reprinted", count.Reprinted);
    json.Add("void_numbers", ListJson(count.VoidNumbers));
    return json.Ended();
}

LedgerJsonList::LedgerJsonList(const QByteArray& name, Write write)
    : m_before("{\"" + name + "\": ["), m_write(std::move(write))
{}

void LedgerJsonList::Add(const QByteArray& json)
{
    m_write((m_isEmpty ? std::exchange(m_before, {}) + '\n' : QByteArrayLiteral(",\n")) + json);
    m_isEmpty = false;
}

void LedgerJsonList::End()
{
    m_write(std::exchange(m_before, {}) + (m_isEmpty ? "]}\n" : "\n]}\n"));
}

} // namespace vantrel
