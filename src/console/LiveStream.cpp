#include "console/LiveStream.h"

namespace vantrel::console {

void LiveStream::Push(const QByteArray& bytes)
{
    if (m_ended)
        return;
    if (m_waiting.size() + bytes.size() > MostWaiting) {
        m_waiting.clear();
        m_ended = true;
    } else {
        m_waiting += bytes;
    }
    Wake();
}

void LiveStream::End()
{
    m_ended = true;
    Wake();
}

QByteArray LiveStream::Take(qsizetype most)
{
    QByteArray taken = m_waiting.left(most);
    m_waiting.remove(0, taken.size());
    return taken;
}

} // namespace vantrel::console
