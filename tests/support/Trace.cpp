#include "support/Trace.h"
#include <QLoggingCategory>

namespace vantrel::test {

namespace {

struct Trace
{
    QByteArray Category;
    QStringList Lines;
};

Trace* running = nullptr;

void KeepLine(QtMsgType /*type*/, const QMessageLogContext& context, const QString& message)
{
    if (running->Category == context.category)
        running->Lines.append(message);
}

} // namespace

QStringList UntracedOf(const char* category, const std::function<void()>& step)
{
    Trace trace{category, {}};
    running = &trace;
    const QtMessageHandler before = qInstallMessageHandler(KeepLine);
    step();
    qInstallMessageHandler(before);
    running = nullptr;
    return trace.Lines;
}

QStringList TraceOf(const char* category, const std::function<void()>& step)
{
    QLoggingCategory::setFilterRules(QLatin1StringView(category) + QStringLiteral(".debug=true"));
    QStringList lines = UntracedOf(category, step);
    QLoggingCategory::setFilterRules(QString());
    return lines;
}

} // namespace vantrel::test
