#pragma once

#include "Commands.h"
#include <QString>
#include <QStringList>

namespace vantrel::admin {

/// The result of parsing a command line: a text to print, a command to run, or a mistake.
struct Request
{
    /// Text to print.
    QString Help;
    const Command* Chosen = nullptr;
    Words Given;
    /// Description of an error in the command line, one line.
    QString Mistake;
};

/// Parses a command line without the program's name. Options stand anywhere, those with a value
/// behind the command, as "--name value" or "--name=value"; "--" ends them, so that a name may
/// begin with "-". Never fails; mistakes are in the result.
Request ReadCommandLine(const QStringList& words);

/// What the program adds to a mistake: where its help is.
QString HintOfHelp();

} // namespace vantrel::admin
