#pragma once

#include <QString>

namespace vantrel {

/// The characters that came from all ports and are not yet a record. It grows without limit and is
/// searched once, from where the last search ended, whatever number of pieces it came in.
class InputBuffer
{
public:
    const QString& Text() const { return m_text; }
    /// Replaces the text; the searches begin anew.
    void Set(const QString& text);
    void Append(const QString& characters);
    void Clear();

    /// @return whether both undecoded delimiter texts stand in the buffer, in whatever order. Empty
    /// delimiters are found in any non-empty text.
    bool IsComplete(const QString& dataStart, const QString& dataEnd);

private:
    /// How far one delimiter text has been looked for.
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
