#pragma once

#include <functional>

namespace vantrel {

/// The road of records to their cards. It is busy while anything prints or a record is processed,
/// including the dialogs that this opens. Records with an input of their own wait until it is free.
class Road
{
public:
    bool IsBusy() const { return m_held > 0; }

    /// Called each time the road becomes free. It must not process a record itself.
    std::function<void()> WhenFree;

private:
    friend class RoadHold;
    int m_held = 0;
};

/// Keeps the road busy for its lifetime. Several may exist at once, one inside the other or not.
class RoadHold
{
public:
    explicit RoadHold(Road& road) : m_road(road) { ++m_road.m_held; }
    RoadHold(const RoadHold&) = delete;
    RoadHold& operator=(const RoadHold&) = delete;
    ~RoadHold()
    {
        if (--m_road.m_held == 0 && m_road.WhenFree)
            m_road.WhenFree();
    }

private:
    Road& m_road;
};

} // namespace vantrel
