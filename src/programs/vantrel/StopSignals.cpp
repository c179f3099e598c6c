#include "programs/vantrel/StopSignals.h"
#include <array>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace vantrel {

namespace {

/// A signal handler can reach the event loop only through global state.
std::array<int, 2> stopPipe{-1, -1};
constexpr std::array StopSignalNumbers{SIGTERM, SIGINT};

extern "C" void OnStopSignal(int /*number*/)
{
    const char byte = 1;
    // If the pipe is full, the loop has already been notified.
    [[maybe_unused]] const ssize_t written = ::write(stopPipe[1], &byte, 1);
}

int OpenPipe()
{
    // Without a pipe the descriptor stays -1 and the signals keep their default effect.
    if (::pipe2(stopPipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        stopPipe = {-1, -1};
    return stopPipe[0];
}

void SetHandler(void (*handler)(int))
{
    struct sigaction action
    {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    for (const int number : StopSignalNumbers)
        ::sigaction(number, &action, nullptr);
}

} // namespace

StopSignals::StopSignals() : m_notifier(OpenPipe(), QSocketNotifier::Read)
{
    if (stopPipe[0] < 0)
        return;
    connect(&m_notifier, &QSocketNotifier::activated, this, [this] {
        std::array<char, 16> bytes{};
        while (::read(stopPipe[0], bytes.data(), bytes.size()) > 0) {
        }
        Q_EMIT Asked();
    });
    SetHandler(OnStopSignal);
}

StopSignals::~StopSignals()
{
    SetHandler(SIG_DFL);
    m_notifier.setEnabled(false);
    for (int& end : stopPipe) {
        ::close(end);
        end = -1;
    }
}

} // namespace vantrel
