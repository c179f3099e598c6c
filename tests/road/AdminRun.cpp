#include "road/AdminRun.h"
#include "road/TestedProgram.h"
#include <QProcess>
#include <gtest/gtest.h>

namespace vantrel::test {

Outcome RunAdmin(const QStringList& arguments)
{
    constexpr int Patience = 60000;
    QProcess program;
    program.start(TestedProgram(VANTREL_ADMIN_PROGRAM), arguments);
    EXPECT_TRUE(program.waitForFinished(Patience));
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    return {program.exitCode(), QString::fromUtf8(program.readAllStandardOutput()),
            QString::fromUtf8(program.readAllStandardError())};
}

void ExpectDone(const QStringList& arguments)
{
    const Outcome outcome = RunAdmin(arguments);
    EXPECT_EQ(outcome.Code, 0) << arguments.join(u' ').toStdString();
    EXPECT_EQ(outcome.Out, QString());
    EXPECT_EQ(outcome.Errors, QString());
}

QString ExpectOneLine(int code, const QStringList& arguments)
{
    const Outcome outcome = RunAdmin(arguments);
    EXPECT_EQ(outcome.Code, code) << arguments.join(u' ').toStdString();
    EXPECT_EQ(outcome.Out, QString());
    EXPECT_TRUE(outcome.Errors.startsWith(QStringLiteral("vantrel-admin: ")));
    EXPECT_EQ(outcome.Errors.indexOf(u'\n'), outcome.Errors.size() - 1)
        << outcome.Errors.toStdString();
    return outcome.Errors;
}

} // namespace vantrel::test
