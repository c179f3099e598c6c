#include "ports/RecordCutter.h"
#include "base/HexCodes.h"
#include <algorithm>
#include <utility>

namespace vantrel {

void RecordCutter::SetDelimiters(const QString& dataStart, const QString& dataEnd)
{
    if (m_startSetting == dataStart && m_endSetting == dataEnd)
        return;
    m_startSetting = dataStart;
    m_endSetting = dataEnd;
    m_dataStart = DecodeHexCodes(dataStart);
    m_dataEnd = DecodeHexCodes(dataEnd);
    Restart();
}

void RecordCutter::Append(const QString& characters)
{
    m_text.append(characters);
}

bool RecordCutter::HasRecord()
{
    return m_end >= 0 || Find();
}

// Framing looks for the end from the character behind the first of the start, so an end may overlap
// the start. The record then is the whole start.
bool RecordCutter::Find()
{
    const qsizetype size = m_text.size();
    if (m_start < 0) {
        m_start = m_head < size ? m_text.indexOf(m_dataStart, m_from) : -1;
        if (m_start < 0) {
            // The end of the text may be the beginning of the delimiter.
            ForgetBefore(std::min(size, std::max(m_head, size - m_dataStart.size() + 1)));
            m_from = 0;
            return false;
        }
        m_head = m_start;
        m_from = m_start + 1;
    }
    const qsizetype end = m_text.indexOf(m_dataEnd, m_from);
    if (end < 0) {
        m_from = std::max(m_from, size - m_dataEnd.size() + 1);
        ForgetBefore(m_start);
        return false;
    }
    m_end = std::max(end + m_dataEnd.size(), m_start + m_dataStart.size());
    return true;
}

QString RecordCutter::TakeRecord()
{
    const qsizetype start = m_start;
    const qsizetype end = m_end;
    const qsizetype rest = m_text.size() - end;
    QString record;
    // The longer part keeps its memory and the shorter one is copied.
    if (rest < end - start) {
        record = std::exchange(m_text, m_text.sliced(end));
        record.truncate(end);
        record.remove(0, start);
        m_head = 0;
    } else {
        record = m_text.sliced(start, end - start);
        m_head = end;
        if (m_head > rest)
            ForgetBefore(m_head);
    }
    Restart();
    return record;
}

void RecordCutter::ForgetBefore(qsizetype place)
{
    if (place == 0)
        return;
    m_text = m_text.sliced(place);
    m_head = 0;
    m_from = std::max<qsizetype>(0, m_from - place);
    m_start = m_start < 0 ? -1 : m_start - place;
}

void RecordCutter::Restart()
{
    m_from = m_head;
    m_start = -1;
    m_end = -1;
}

qsizetype RecordCutter::DropIncomplete()
{
    QString complete;
    while (HasRecord())
        complete += TakeRecord();
    const qsizetype dropped = m_text.size();
    m_text = std::move(complete);
    m_head = 0;
    Restart();
    return dropped;
}

} // namespace vantrel
