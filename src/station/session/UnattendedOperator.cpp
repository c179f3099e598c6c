#include "station/session/UnattendedOperator.h"
#include <QCoreApplication>
#include <cstdio>

namespace vantrel {

namespace {
void Tell(const QString& title, const QString& text)
{
    const QString line = title.trimmed() + QStringLiteral(": ") + text;
    std::fprintf(stderr, "%s\n", qUtf8Printable(line.simplified()));
}
} // namespace

bool UnattendedOperator::ShowAppMessage(const QString& text, const QString& title,
                                        AppMessageButtons buttons)
{
    Tell(title, text);
    return buttons == AppMessageButtons::OkOnly;
}

void UnattendedOperator::MessageBox(const QString& text, const QString& title, BoxIcon /*icon*/)
{
    Tell(title, text);
}

bool UnattendedOperator::AskYesNo(const QString& text, const QString& title)
{
    Tell(title, text);
    return false;
}

BoxAnswer UnattendedOperator::AskYesNoCancel(const QString& text, const QString& title)
{
    Tell(title, text);
    return BoxAnswer::No;
}

QString UnattendedOperator::InputBox(const QString& prompt, const QString& title,
                                     const QString& /*present*/)
{
    Tell(title, prompt);
    return {};
}

void UnattendedOperator::LetEventsRun()
{
    QCoreApplication::processEvents();
}

} // namespace vantrel
