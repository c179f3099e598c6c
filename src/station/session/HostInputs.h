#pragma once

namespace vantrel {

/// The inputs that connections and serial ports have of their own, as far as the rest of the
/// station must know of them. They belong to the room that takes records.
class HostInputs
{
public:
    HostInputs() = default;
    HostInputs(const HostInputs&) = delete;
    HostInputs& operator=(const HostInputs&) = delete;
    virtual ~HostInputs() = default;

    /// Drops the incomplete records of all inputs. Complete ones are still taken.
    virtual void DropIncomplete() = 0;
    /// Takes no further record; the one in hand is finished. Called at the end of the station.
    virtual void Stop() = 0;
};

} // namespace vantrel
