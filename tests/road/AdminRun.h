#pragma once

#include "support/Print.h"
#include <QByteArray>
#include <QStringList>

namespace vantrel::test {

/// How a run of `vantrel-admin` ended and what it wrote.
struct Outcome
{
    int Code = -1;
    QString Out;
    QString Errors;
};

Outcome RunAdmin(const QStringList& arguments);
/// Runs it and expects that it succeeds silently.
void ExpectDone(const QStringList& arguments);
/// Runs it and expects an exit code and one line on the standard error. @return that line
QString ExpectOneLine(int code, const QStringList& arguments);

} // namespace vantrel::test
