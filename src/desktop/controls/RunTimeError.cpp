#include "desktop/controls/RunTimeError.h"
#include <QCoreApplication>
#include <cstdio>

namespace vantrel {

void TellRunTimeError(const Failure& failure)
{
    const QString line =
        QStringLiteral("vantrel: run-time error %1: %2").arg(failure.Number()).arg(failure.Text());
    std::fprintf(stderr, "%s\n", qUtf8Printable(line.simplified()));
}

void EndWithRunTimeError(const Failure& failure)
{
    TellRunTimeError(failure);
    QCoreApplication::exit(FailedExit);
}

} // namespace vantrel
