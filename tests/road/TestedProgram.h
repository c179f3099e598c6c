#pragma once

#include <QDir>
#include <QFileInfo>
#include <QString>

namespace vantrel::test {

/// The program of this build that a test starts, or the one of its name in the folder that
/// VANTREL_TESTED_PROGRAMS names, such as that of a build with a sanitizer, where there is one.
inline QString TestedProgram(const char* built)
{
    const QFileInfo program(QString::fromUtf8(built));
    const QFileInfo other(QDir(qEnvironmentVariable("VANTREL_TESTED_PROGRAMS")),
                          program.fileName());
    return qEnvironmentVariableIsSet("VANTREL_TESTED_PROGRAMS") && other.isExecutable() &&
                   other.isFile()
               ? other.filePath()
               : program.filePath();
}

} // namespace vantrel::test
