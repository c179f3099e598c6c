#pragma once

#include "console/HttpServer.h"
#include <QString>
#include <QStringList>
#include <optional>

namespace vantrel::console {

/// What the program was asked to do.
struct ConsoleOptions
{
    QString Folder;
    /// Without the contents of the files below.
    ListenTerms Listen;
    /// Paths of the PEM files; empty without TLS.
    QString Certificate;
    QString Key;
};

/// The port where none is named.
inline constexpr quint16 UsualPort = 8620;

/// The result of parsing a command line: a text to print, options, or a mistake.
struct OptionsRequest
{
    QString Help;
    std::optional<ConsoleOptions> Options;
    /// One line.
    QString Mistake;
};

/// Parses a command line without the program's name. Never fails.
OptionsRequest ReadCommandLine(const QStringList& words);

} // namespace vantrel::console
