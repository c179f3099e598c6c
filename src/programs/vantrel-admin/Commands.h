#pragma once

#include <QStringList>
#include <span>

namespace vantrel::admin {

/// One command of the program.
struct Command
{
    /// Its words, such as "macro add".
    const char* Name;
    /// Its arguments in capitals, as the help shows them. All are required; empty for none.
    const char* Arguments;
    const char* Purpose;
    /// Runs the command. Fails with `Failure`.
    void (*Run)(const QStringList& arguments);
};

/// All commands, in the order of the help.
std::span<const Command> Commands();

} // namespace vantrel::admin
