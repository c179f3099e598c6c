#include "ports/InputBuffer.h"

namespace vantrel {

void InputBuffer::Set(const QString& text)
{
    m_text = text;
    m_start = {};
    m_end = {};
}

void InputBuffer::Append(const QString& characters)
{
    m_text.append(characters);
}

void InputBuffer::Clear()
{
    Set({});
}

bool InputBuffer::IsComplete(const QString& dataStart, const QString& dataEnd)
{
    return m_start.Advance(m_text, dataStart) && m_end.Advance(m_text, dataEnd);
}

bool InputBuffer::Search::Advance(const QString& text, const QString& wanted)
{
    if (Wanted != wanted)
        *this = {wanted, 0, false};
    if (Found || text.isEmpty())
        return Found;
    Found = text.indexOf(wanted, From) >= 0;
    // The end of the text may be the beginning of the delimiter.
    From = std::max<qsizetype>(0, text.size() - wanted.size() + 1);
    return Found;
}

} // namespace vantrel
