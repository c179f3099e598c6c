#pragma once

namespace vantrel::test {

/// A port of this machine that the system gives to no other program while this object lives. A
/// station can listen on it; until one does, nobody listens there.
class HeldPort
{
public:
    HeldPort();
    ~HeldPort();
    HeldPort(const HeldPort&) = delete;
    HeldPort& operator=(const HeldPort&) = delete;

    int Number() const { return m_number; }

private:
    int m_descriptor = -1;
    int m_number = 0;
};

} // namespace vantrel::test
