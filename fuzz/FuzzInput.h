#pragma once

#include "base/CodePage.h"
#include <QByteArray>
#include <cstdint>
#include <cstdlib>
#include <iostream>

namespace vantrel::fuzz {

/// The fuzzer's input, consumed from the front.
class Input
{
public:
    Input(const std::uint8_t* data, std::size_t size)
        : m_rest(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size))
    {}

    /// The next byte, 0 at the end.
    std::uint8_t Byte()
    {
        if (m_rest.isEmpty())
            return 0;
        const auto byte = static_cast<std::uint8_t>(m_rest.front());
        m_rest.remove(0, 1);
        return byte;
    }
    /// The bytes up to the next line feed, or to the end.
    QByteArray Bytes()
    {
        const qsizetype end = m_rest.indexOf('\n');
        const qsizetype length = end < 0 ? m_rest.size() : end;
        QByteArray line = m_rest.first(length);
        m_rest.remove(0, end < 0 ? length : end + 1);
        return line;
    }
    /// The same as a text in code page 1252.
    QString Line() { return FromCodePage(Bytes()); }
    bool IsEmpty() const { return m_rest.isEmpty(); }
    const QByteArray& Rest() const { return m_rest; }

private:
    QByteArray m_rest;
};

/// Aborts the run if a condition does not hold.
inline void Require(bool holds, const char* what)
{
    if (holds)
        return;
    std::cerr << "does not hold: " << what << std::endl;
    std::abort();
}

} // namespace vantrel::fuzz
