#pragma once

#include <QString>

namespace vantrel {

/// The received characters of all ports that are not yet a complete record. It grows without limit.
/// Each search continues where the last one ended, so the total time is linear however many pieces
/// arrive.
class InputBuffer
{
public:
    /// The buffered characters.
    const QString& Text() const { return m_text; }
    /// Replaces the text and restarts the searches.
    void Set(const QString& text);
    /// Appends characters; the searches continue.
    void Append(const QString& characters);
    /// Empties the buffer.
    void Clear();

    /// @return whether the buffer contains both delimiter texts (undecoded), in any order. Any
    /// non-empty text contains an empty delimiter
    bool IsComplete(const QString& dataStart, const QString& dataEnd);

private:
    /// The state of the search for one delimiter text.
    struct Search
    {
        QString Wanted;
        qsizetype From = 0;
        bool Found = false;
        bool Advance(const QString& text, const QString& wanted);
    };

    QString m_text;
    Search m_start;
    Search m_end;
};

} // namespace vantrel
