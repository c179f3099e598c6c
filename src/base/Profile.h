#pragma once

#include <QString>
#include <QStringList>
#include <optional>

namespace vantrel {

/// @file INI files. Section and key names are compared without regard to case, blanks around names
/// and values are trimmed, one pair of matching quotes around a value is removed, and a line that
/// begins with ";" is a comment. Files are in code page 1252. LF and CRLF are read as line ends and
/// CRLF is written; a carriage return elsewhere is part of its line. A write keeps all other lines
/// and their order. It replaces the file by an atomic rename under a lock file, so no session ever
/// reads a partly written file.

/// The station's settings file, in its program folder.
inline constexpr QLatin1StringView SettingsFileName{"Vantrel 6.ini"};

/// The longest value that is read, in characters; the rest of a longer one is ignored.
inline constexpr int ProfileValueLimit = 255;

/// @return the value of a key, cut to `ProfileValueLimit` characters, or nothing if the file,
/// section or key is missing. Never fails
std::optional<QString> FindProfileValue(const QString& path, const QString& section,
                                        const QString& key);

/// @return the same, or `absent` if it is missing. Never fails
QString ReadProfileValue(const QString& path, const QString& section, const QString& key,
                         const QString& absent);

/// The names of the sections of a file, in their order. Never fails; a file that cannot be read has
/// none.
QStringList ProfileSections(const QString& path);

/// Writes one key; `value` must not contain a line feed. Waits up to five seconds for the lock.
/// @return false if the lock or the file cannot be written; the file is then unchanged
bool WriteProfileValue(const QString& path, const QString& section, const QString& key,
                       const QString& value);

} // namespace vantrel
