#include "station/batch/RunLock.h"
#include "base/Failure.h"
#include "base/Skip.h"
#include "ledger/LedgerBatches.h"
#include "ledger/LedgerTables.h"
#include "store/StoreDatabase.h"
#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace vantrel {

namespace {

constexpr mode_t LockMode = 0640;

QByteArray LockPath(const QString& programFolder, int session)
{
    return QFile::encodeName(QStringLiteral("%1/Print-%2.lock").arg(programFolder).arg(session));
}

/// @return the descriptor of the locked file; -1 if another one holds it or there is no such file
int Locked(const QByteArray& path, int flags)
{
    const int descriptor = ::open(path.constData(), O_RDWR | O_CLOEXEC | flags, LockMode);
    if (descriptor >= 0 && ::flock(descriptor, LOCK_EX | LOCK_NB) == 0)
        return descriptor;
    if (descriptor >= 0)
        ::close(descriptor);
    return -1;
}

LedgerState StateAfterKill(const LedgerCard& card)
{
    if (card.File.isEmpty())
        return LedgerState::Doubtful;
    return QFileInfo::exists(card.File) ? LedgerState::Printed : LedgerState::Void;
}

} // namespace

RunLock::RunLock(const QString& programFolder)
{
    for (int run = 0; run < MostRunsAtOnce; ++run) {
        m_session = FirstRunSession + run;
        m_descriptor = Locked(LockPath(programFolder, m_session), O_CREAT);
        if (m_descriptor >= 0)
            return;
        if (errno != EWOULDBLOCK)
            throw Failure(FailureNumber::PathNotFound,
                          QStringLiteral("%1 cannot be written.").arg(programFolder));
    }
    throw Failure(FailureNumber::InvalidCall,
                  QStringLiteral("Too many runs print from %1.").arg(programFolder));
}

RunLock::~RunLock()
{
    ::close(m_descriptor);
}

void EndCardsOfRun(StoreDatabase& database, int session)
{
    EndCardsOf(database, session, StateAfterKill);
}

void EndDeadRuns(const QString& programFolder, StoreDatabase& database)
{
    Skip("dead runs", [&] {
        if (!HasLedger(database))
            return;
        for (int run = 0; run < MostRunsAtOnce; ++run) {
            const int session = FirstRunSession + run;
            const int lock = Locked(LockPath(programFolder, session), 0);
            if (lock < 0)
                continue;
            Skip("dead run", [&] { EndCardsOfRun(database, session); });
            ::close(lock);
        }
    });
}

} // namespace vantrel
