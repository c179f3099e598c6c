#pragma once

#include "console/Gate.h"
#include "console/Request.h"
#include <span>
#include <vector>

namespace vantrel::console {

class ConsoleStore;

/// The numbers in a path, in their order.
using PathNumbers = std::vector<qlonglong>;

/// Which of the threads with a store answers a path.
enum class Thread {
    Store,
    /// Drawing takes longer than everything else, and keeps nobody waiting but those who look on.
    Pictures,
};

/// One path of the console.
struct Route
{
    /// "GET" or "POST"; what can be got can also be asked for by HEAD.
    const char* Method;
    /// Its parts with slashes between; "#" stands for a whole number from 1 on, also with a text
    /// behind it.
    const char* Path;
    console::Need Need;
    /// Answers in a thread with a store. May fail with `Failure` or throw `NotTaken`.
    Answer (*Handle)(ConsoleStore& store, const Request& request, const PathNumbers& numbers);
    console::Thread Thread = Thread::Store;
};

/// All paths that the store answers.
std::span<const Route> Routes();

/// Whether a path is one of this pattern. @param numbers  receives the numbers in it
bool IsOnPath(const QStringList& path, QLatin1StringView pattern, PathNumbers& numbers);

} // namespace vantrel::console
