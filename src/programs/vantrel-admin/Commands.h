#pragma once

#include <QMap>
#include <QString>
#include <QStringList>
#include <optional>
#include <span>

namespace vantrel::admin {

/// What a command was given.
struct Words
{
    QStringList Arguments;
    /// Values by the names of the options, such as "--limit"; empty for one that takes none.
    QMap<QString, QString> Options;

    bool Has(const char* option) const { return Options.contains(QLatin1StringView(option)); }
    /// The option's value; nothing if it was not given.
    std::optional<QString> ValueOf(const char* option) const
    {
        const auto found = Options.constFind(QLatin1StringView(option));
        return found == Options.cend() ? std::nullopt : std::optional(*found);
    }
};

/// One option of a command.
struct Option
{
    /// Such as "--limit".
    const char* Name;
    /// The name of its value in capitals; empty if it takes none.
    const char* Value;
    const char* Purpose;
};

/// One command of the program.
struct Command
{
    /// Its words, such as "macro add".
    const char* Name;
    /// Its arguments in capitals, as the help shows them; optional ones in brackets at the end,
    /// with dots for any number of the last one.
    const char* Arguments;
    const char* Purpose;
    /// Runs the command. Fails with `Failure`, or with `NotUnderstood` before it has done anything.
    void (*Run)(const Words& words);
    std::span<const Option> Options = {};
};

/// Thrown for a value that is none of its option.
struct NotUnderstood
{
    QString Text;
};

/// All commands, in the order of the help.
std::span<const Command> Commands();

} // namespace vantrel::admin
