#include "road/LedgerFolder.h"
#include "support/Events.h"
#include "support/Host.h"
#include <gtest/gtest.h>

namespace vantrel::test {

LedgerFolder::LedgerFolder()
{
    AddAutoNumber(NumberBefore);
    for (const char* key : {"Ledger", "KeepEveryRecord", "UniqueNumbers", "AnswerHost"})
        SetOption(key, QStringLiteral("True"));
    Session.LayoutDb.Close();
}

AskingHost::AskingHost(int port) : m_host(std::make_unique<Host>(port))
{
    EXPECT_TRUE(m_host->IsConnected());
}

AskingHost::~AskingHost() = default;

void AskingHost::Send(const QString& value)
{
    m_host->Send('<' + value.toLatin1() + "+7>");
}

bool AskingHost::HasAnswer()
{
    m_received += m_host->Received();
    return m_received.contains('\n');
}

QString AskingHost::Answer()
{
    EXPECT_TRUE(EventsUntil([&] { return HasAnswer(); }));
    const qsizetype end = m_received.indexOf('\n');
    QString answer = QString::fromLatin1(m_received.left(end)).trimmed();
    m_received.remove(0, end + 1);
    return answer;
}

QString AskingHost::Ask(const QString& value)
{
    Send(value);
    return Answer();
}

QString WithoutId(const QString& answer)
{
    return answer.section(QLatin1Char(' '), 0, 0) + QLatin1Char(' ') +
           answer.section(QLatin1Char(' '), 2);
}

} // namespace vantrel::test
