#pragma once

#include <QByteArray>
#include <QString>
#include <algorithm>

namespace vantrel {

/// One line of a table of values as RFC 4180 has it, in UTF-8, field by field.
class CsvLine
{
public:
    void Add(const QString& text)
    {
        if (m_hasFields)
            m_bytes += ',';
        m_hasFields = true;
        const QByteArray utf8 = text.toUtf8();
        const bool isPlain = std::none_of(utf8.begin(), utf8.end(), [](char c) {
            return c == ',' || c == '"' || c == '\r' || c == '\n';
        });
        if (isPlain)
            m_bytes += utf8;
        else
            m_bytes += '"' + QByteArray(utf8).replace('"', "\"\"") + '"';
    }
    /// The line without a line end.
    const QByteArray& Bytes() const { return m_bytes; }

private:
    QByteArray m_bytes;
    bool m_hasFields = false;
};

} // namespace vantrel
