#include "console/Answer.h"
#include "ledger/LedgerTables.h"
#include <QStringList>

namespace vantrel::console {

Answer JsonAnswer(QByteArray json)
{
    return {.Status = 200,
            .Type = "application/json",
            .Body = std::move(json),
            .Headers = {},
            .Delay = {},
            .Live = {}};
}

Answer EmptyAnswer(int status)
{
    Answer answer;
    answer.Status = status;
    return answer;
}

Answer Refusal(int status, const QString& reason)
{
    Answer answer = JsonAnswer("{\"error\": " + JsonText(reason) + "}\n");
    answer.Status = status;
    return answer;
}

QByteArray JsonText(const QString& text)
{
    // The list of it alone without the brackets.
    const QByteArray list = ListText(QStringList{text}).toUtf8();
    return list.mid(1, list.size() - 2);
}

} // namespace vantrel::console
