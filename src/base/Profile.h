#pragma once

#include <QString>
#include <optional>

namespace vantrel {

/// @file Classic sectioned text files. Names are case-blind, blanks around names and values are
/// trimmed, one pair of equal quotes around a value is taken off, a line that begins with ";" is a
/// comment. Code page 1252; both line ends are read, CRLF is written; a carriage return elsewhere
/// is part of its line. A write keeps all other lines and their order, and is read-modify-write
/// under a lock file with an atomic rename, so that no session ever reads half a file.

/// The station's settings file, in its program folder.
inline constexpr QLatin1StringView SettingsFileName{"Vantrel 6.ini"};

/// The longest value that comes back, in characters.
inline constexpr int ProfileValueLimit = 255;

/// @return the value of a key, cut to 255 characters, or nothing where file, section or key is
/// missing. Never fails
std::optional<QString> FindProfileValue(const QString& path, const QString& section,
                                        const QString& key);

/// @return the same, or `absent` where it is missing. Never fails
QString ReadProfileValue(const QString& path, const QString& section, const QString& key,
                         const QString& absent);

/// Writes one key; `value` must hold no line feed. @return false where the file cannot be written;
/// the file is then as it was
bool WriteProfileValue(const QString& path, const QString& section, const QString& key,
                       const QString& value);

} // namespace vantrel
