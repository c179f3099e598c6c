#include "station/capture/Answers.h"
#include "ports/AnswerLine.h"
#include "station/session/Session.h"
#include <QLoggingCategory>

namespace vantrel {

namespace {

Q_LOGGING_CATEGORY(stationLog, "vantrel.station")

QByteArray BytesOfLine(QString line, InputEncoding encoding)
{
    line.replace(QLatin1Char('\r'), QLatin1Char(' ')).replace(QLatin1Char('\n'), QLatin1Char(' '));
    return BytesOfInput(line, encoding) + "\r\n";
}

} // namespace

std::function<void(const QString&)> AnswerHost(std::shared_ptr<AnswerLine> line,
                                               InputEncoding encoding)
{
    if (!line)
        return {};
    return [line = std::move(line), encoding](const QString& text) {
        line->Send(BytesOfLine(text, encoding));
    };
}

std::function<void(const QString&)> AnswerSerial(Session& session)
{
    if (!session.Options.AnswerHost)
        return {};
    return [&session, opening = session.Comm.Opening()](const QString& text) {
        Comm& comm = session.Comm;
        if (!comm.PortOpen() || comm.Opening() != opening)
            return;
        comm.Output(BytesOfLine(text, session.Options.Encoding));
        if (comm.TakeRefusalNotice())
            qCWarning(stationLog).noquote().nospace()
                << "COM" << comm.CommPort() << " does not read its answers; they are dropped";
    };
}

} // namespace vantrel
