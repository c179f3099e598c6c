#pragma once

#include "station/batch/Batch.h"
#include <functional>
#include <optional>
#include <sys/types.h>
#include <vector>

namespace vantrel::print {

/// Processes of this program that print batches side by side. They are started before the program
/// has threads or open databases, and end with it, whatever becomes of it.
class Workers
{
public:
    /// What a worker does: prints a batch and returns the results of its rows.
    using Work = std::function<std::vector<RowResult>(const Batch& batch)>;
    /// Makes a worker's work in its process, with the first batch. Fails with a `Failure`, with
    /// whose text each row then fails.
    using MakeWork = std::function<Work()>;

    /// Starts them. Fails with `InvalidCall` if the system has no room for them.
    Workers(int count, const MakeWork& make);
    Workers(const Workers&) = delete;
    Workers& operator=(const Workers&) = delete;
    /// Lets them end and waits for them.
    ~Workers();

    /// Whether a worker is there that may be given a batch now: each has one in hand and one that
    /// waits.
    bool HasRoom() const;
    /// Whether a batch is under way.
    bool IsBusy() const;
    /// Gives a batch to the worker with the fewest. @param id  comes back with its results
    void Give(qint64 id, const Batch& batch);

    struct Done
    {
        qint64 Id = 0;
        /// Nothing if the worker ended before it had told them.
        std::optional<std::vector<RowResult>> Results;
    };
    /// Waits until the results of a batch are there. Some must be under way.
    Done Take();

private:
    struct Worker
    {
        pid_t Process = -1;
        int Socket = -1;
        std::vector<qint64> Batches;
    };

    static void Start(Worker& worker, const std::vector<Worker>& others, const MakeWork& make);
    static void Serve(int socket, const MakeWork& make);
    Worker* Freest();
    static Done TakeFrom(Worker& worker);

    std::vector<Worker> m_workers;
};

} // namespace vantrel::print
