#pragma once

#include "Commands.h"
#include <QString>
#include <QStringList>

namespace vantrel::admin {

/// What a command line asks for: a text to print, a command to run, or nothing that makes sense.
struct Request
{
    /// To be printed as it stands.
    QString Help;
    const Command* Chosen = nullptr;
    QStringList Arguments;
    /// What is wrong with the command line, one line.
    QString Mistake;
};

/// Reads a command line without the program's name. "--" ends the options, so that a name may begin
/// with "-".
Request ReadCommandLine(const QStringList& words);

} // namespace vantrel::admin
