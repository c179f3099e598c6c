#pragma once

#include <QProcess>
#include <csignal>
#include <sys/types.h>

namespace vantrel::test {

/// Sends a signal to a program. One that has ended has the number 0, by which everybody in the
/// group of the test would get it; then nothing is sent.
/// @return whether it was sent
inline bool SendSignalTo(const QProcess& process, int signal)
{
    const auto id = static_cast<pid_t>(process.processId());
    return id > 0 && ::kill(id, signal) == 0;
}

} // namespace vantrel::test
