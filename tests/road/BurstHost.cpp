#include "road/BurstHost.h"
#include <QElapsedTimer>
#include <QStringList>
#include <QThread>
#include <algorithm>
#include <gtest/gtest.h>
#include <utility>

namespace vantrel::test {

namespace {

HostAnswer AnswerOf(const QByteArray& line, QString value)
{
    const QString text = QString::fromLatin1(line);
    EXPECT_TRUE(text.endsWith(QLatin1Char('\r'))) << line.constData();
    const QString words = text.trimmed();
    HostAnswer answer;
    answer.Value = std::move(value);
    answer.Ok = words.section(QLatin1Char(' '), 0, 0) == QStringLiteral("OK");
    answer.Id = words.section(QLatin1Char(' '), 1, 1).toLongLong();
    answer.Rest = words.section(QLatin1Char(' '), 2);
    return answer;
}

} // namespace

BurstHost::BurstHost(int port, QString name, std::size_t connections, unsigned seed)
    : m_port(port), m_name(std::move(name)), m_random(seed), m_links(connections)
{}

bool BurstHost::GoOn()
{
    bool moved = false;
    for (Link& link : m_links) {
        if (!link.Connection && !Connect(link))
            continue;
        moved |= link.Unanswered.empty() && SendBurst(link);
        moved |= Read(link);
    }
    return moved;
}

bool BurstHost::GoOnUntil(const std::function<bool()>& holds)
{
    constexpr int limitMs = 60'000;
    QElapsedTimer still;
    still.start();
    while (!holds()) {
        if (GoOn())
            still.start();
        else
            QThread::msleep(1);
        if (still.elapsed() > limitMs)
            return false;
    }
    return true;
}

void BurstHost::GoOnFor(qint64 milliseconds)
{
    QElapsedTimer time;
    time.start();
    GoOnUntil([&] { return time.hasExpired(milliseconds); });
}

bool BurstHost::Connect(Link& link) const
{
    auto connection = std::make_unique<Host>(m_port);
    if (!connection->IsConnected())
        return false;
    link.Connection = std::move(connection);
    return true;
}

bool BurstHost::SendBurst(Link& link)
{
    std::uniform_int_distribution<std::size_t> length(1, LongestBurst);
    QByteArray burst;
    for (std::size_t record = length(m_random); record > 0; --record) {
        const QString value = NextValue();
        if (value.isEmpty())
            break;
        burst += '<' + value.toLatin1() + "+7>";
        ++m_sent[value];
        link.Unanswered.push_back(value);
    }
    link.Connection->SendWithoutWaiting(burst);
    return !burst.isEmpty();
}

QString BurstHost::NextValue()
{
    if (!m_again.empty()) {
        QString value = std::move(m_again.front());
        m_again.pop_front();
        return value;
    }
    return m_beginsNew ? m_name + QString::number(++m_begun) : QString();
}

bool BurstHost::Read(Link& link)
{
    // An answer that comes between the two is read before the end is seen.
    const bool ended = link.Connection->SeesEnd();
    link.Line += link.Connection->Received();
    bool moved = false;
    for (qsizetype end = link.Line.indexOf('\n'); end >= 0; end = link.Line.indexOf('\n')) {
        moved = true;
        if (link.Unanswered.empty()) {
            ADD_FAILURE() << "an answer to nothing: " << link.Line.left(end).constData();
        } else {
            m_answers.push_back(AnswerOf(link.Line.left(end), link.Unanswered.front()));
            link.Unanswered.pop_front();
        }
        link.Line.remove(0, end + 1);
    }
    if (ended)
        Lose(link);
    return moved;
}

void BurstHost::Lose(Link& link)
{
    m_again.insert(m_again.end(), link.Unanswered.begin(), link.Unanswered.end());
    link = {};
}

bool BurstHost::IsAllAnswered() const
{
    return m_again.empty() && std::all_of(m_links.begin(), m_links.end(),
                                          [](const Link& link) { return link.Unanswered.empty(); });
}

bool BurstHost::IsConnected() const
{
    return std::any_of(m_links.begin(), m_links.end(),
                       [](const Link& link) { return link.Connection != nullptr; });
}

} // namespace vantrel::test
