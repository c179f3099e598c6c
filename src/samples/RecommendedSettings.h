#pragma once

#include <QString>
#include <QStringList>

namespace vantrel {

/// Keys of the section "Station" that a new station should have set.
QStringList RecommendedKeys();

/// Creates a program folder as `MakeProgramFolder` does, with the recommended keys set. Fails like
/// that.
void MakeRecommendedFolder(const QString& folder);

/// Sets the recommended keys in a program folder that is there. Fails with `FileNotFound` if it has
/// no layout database, with `PathNotFound` if the settings cannot be written.
void SetRecommendedSettings(const QString& folder);

/// Copies the settings of a program folder to a file beside them. Fails like
/// `SetRecommendedSettings`.
/// @return the copy's path; empty if there were no settings yet
QString BackUpSettings(const QString& folder);

} // namespace vantrel
