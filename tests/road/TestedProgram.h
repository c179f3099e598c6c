#pragma once

#include <QDir>
#include <QFileInfo>
#include <QString>

namespace vantrel::test {

/// The program of this build that a test starts, or the one of its name in the folder that
/// VANTREL_TESTED_PROGRAMS names, such as that of a build with a sanitizer, where there is one.
inline QString TestedProgram(const char* built)
{
    constexpr auto variable = "VANTREL_TESTED_PROGRAMS";
    const QFileInfo program(QString::fromUtf8(built));
    if (!qEnvironmentVariableIsSet(variable))
        return program.filePath();
    const QFileInfo other(QDir(qEnvironmentVariable(variable)), program.fileName());
    return other.isFile() ? other.filePath() : program.filePath();
}

} // namespace vantrel::test
