#include "station/ledger/HistoryReader.h"
#include "base/CallIn.h"
#include "base/Failure.h"
#include "ledger/LedgerExport.h"
#include "ledger/LedgerSearch.h"
#include "ledger/LedgerTables.h"
#include "store/StoreDatabase.h"
#include <QSaveFile>

namespace vantrel {

namespace {

/// An entry may begin to match some time after it came, as when its card fails.
constexpr qlonglong LookedAtAgain = 2000;

[[noreturn]] void FailWriting(const QSaveFile& file)
{
    throw Failure(FailureNumber::PathNotFound,
                  file.fileName() + QStringLiteral(": ") + file.errorString());
}

} // namespace

/// What runs in the thread. It answers through the reader, whose thread is another one.
class HistoryReader::Worker : public QObject
{
public:
    Worker(HistoryReader& reader, QString path, InputEncoding encoding,
           std::shared_ptr<std::atomic<int>> search)
        : m_reader(reader), m_path(std::move(path)), m_encoding(encoding),
          m_search(std::move(search))
    {}

    void Begin(const LedgerFilter& filter, int number)
    {
        m_filter = filter;
        m_running.emplace(filter);
        m_newest = 0;
        Go(number);
    }
    void ReadRows(const std::vector<qlonglong>& ids)
    {
        std::vector<HistoryRow> rows;
        With([&](StoreDatabase& database) {
            for (const qlonglong id : ids) {
                if (const auto entry = FindEntry(database, id, LedgerBytes::Without))
                    rows.push_back(RowOf(*entry));
            }
        });
        Tell([rows = std::move(rows)](HistoryReader& reader) { Q_EMIT reader.RowsRead(rows); });
    }
    void ReadEntry(qlonglong id)
    {
        With([&](StoreDatabase& database) {
            auto entry = ReadHistoryEntry(database, id, m_encoding);
            Tell([entry = std::move(entry)](HistoryReader& reader) {
                Q_EMIT reader.EntryRead(entry);
            });
        });
    }
    void Look(int number)
    {
        With([&](StoreDatabase& database) {
            const StoreDatabase::State now = database.Now();
            if (now == m_state)
                return;
            m_state = now;
            if (number == *m_search && m_running && m_running->IsDone())
                FindNew(database, number);
            Tell([](HistoryReader& reader) { Q_EMIT reader.Changed(); });
        });
    }
    void Export(const LedgerFilter& filter, const QString& path)
    {
        QString problem;
        try {
            QSaveFile file(path);
            if (!file.open(QIODevice::WriteOnly))
                FailWriting(file);
            ExportEntries(Open(), filter, [&](const QByteArray& line) {
                if (file.write(line) != line.size() ||
                    QThread::currentThread()->isInterruptionRequested())
                    FailWriting(file);
            });
            if (!file.commit())
                FailWriting(file);
        } catch (const Failure& failure) {
            problem = failure.Text();
        }
        Tell([path, problem](HistoryReader& reader) { Q_EMIT reader.Exported(path, problem); });
    }

private:
    void Go(int number)
    {
        if (number != *m_search)
            return;
        const bool went = With([&](StoreDatabase& database) {
            if (m_newest == 0)
                m_newest = EntryRange(database, {}).Last;
            auto found = m_running->Step(database);
            if (!found.empty())
                Tell([number, found = std::move(found)](HistoryReader& reader) {
                    if (number == *reader.m_search)
                        Q_EMIT reader.Found(found);
                });
        });
        if (went && !m_running->IsDone()) {
            // Other requests come in between.
            CallIn(this, [this, number] { Go(number); });
            return;
        }
        Tell([number](HistoryReader& reader) {
            if (number == *reader.m_search)
                Q_EMIT reader.SearchEnded();
        });
    }
    void FindNew(StoreDatabase& database, int number)
    {
        LedgerFilter filter = m_filter;
        filter.From = std::max(m_newest - LookedAtAgain, qlonglong{0});
        filter.Before = EntryRange(database, {}).Last + 1;
        m_newest = std::max(m_newest, *filter.Before - 1);
        auto found = EntryNumbers(database, filter);
        Tell([number, found = std::move(found)](HistoryReader& reader) {
            if (number == *reader.m_search)
                Q_EMIT reader.Arrived(found);
        });
    }

    StoreDatabase& Open()
    {
        if (!m_database) {
            m_database = OpenStoreDatabase(m_path);
            if (!HasLedger(*m_database)) {
                m_database.reset();
                throw Failure(FailureNumber::InvalidCall,
                              QStringLiteral("No ledger is kept here yet."));
            }
        }
        return *m_database;
    }
    template <typename Step>
    bool With(Step&& step)
    {
        try {
            step(Open());
            return true;
        } catch (const Failure& failure) {
            Tell([text = failure.Text()](HistoryReader& reader) { Q_EMIT reader.Failed(text); });
            return false;
        }
    }
    template <typename Answer>
    void Tell(Answer&& answer)
    {
        CallIn(&m_reader,
               [&reader = m_reader, answer = std::forward<Answer>(answer)] { answer(reader); });
    }

    HistoryReader& m_reader;
    QString m_path;
    InputEncoding m_encoding;
    /// The number of the search that is wanted.
    std::shared_ptr<std::atomic<int>> m_search;
    std::unique_ptr<StoreDatabase> m_database;
    LedgerFilter m_filter;
    std::optional<LedgerSearch> m_running;
    /// The highest number that was looked at.
    qlonglong m_newest = 0;
    StoreDatabase::State m_state;
};

HistoryReader::HistoryReader(const QString& databasePath, InputEncoding encoding)
    : m_search(std::make_shared<std::atomic<int>>(0))
{
    m_worker = new Worker(*this, databasePath, encoding, m_search);
    m_worker->moveToThread(&m_thread);
    connect(&m_thread, &QThread::finished, m_worker, &QObject::deleteLater);
    m_thread.setObjectName(QStringLiteral("History"));
    m_thread.start();
}

HistoryReader::~HistoryReader()
{
    ++*m_search;
    m_thread.requestInterruption();
    EndThread(m_thread);
}

template <typename Work>
void HistoryReader::Ask(Work&& work)
{
    CallIn(m_worker, std::forward<Work>(work));
}

void HistoryReader::Search(const LedgerFilter& filter)
{
    const int number = ++*m_search;
    Ask([worker = m_worker, filter, number] { worker->Begin(filter, number); });
}

void HistoryReader::ReadRows(std::vector<qlonglong> ids)
{
    Ask([worker = m_worker, ids = std::move(ids)] { worker->ReadRows(ids); });
}

void HistoryReader::ReadEntry(qlonglong id)
{
    Ask([worker = m_worker, id] { worker->ReadEntry(id); });
}

void HistoryReader::Look()
{
    Ask([worker = m_worker, number = m_search->load()] { worker->Look(number); });
}

void HistoryReader::Export(const LedgerFilter& filter, const QString& path)
{
    Ask([worker = m_worker, filter, path] { worker->Export(filter, path); });
}

} // namespace vantrel
