#pragma once

#include <QByteArray>
#include <QString>

namespace vantrel {

/// The random key in a file, which only its owner can read; makes the file if it is missing.
/// Several processes that make it at once get the same key.
/// @return 64 hexadecimal digits, 256 random bits
/// Fails with `PathNotFound` if the file can neither be read nor made, or holds no such key.
QByteArray SecretKeyOf(const QString& path);

} // namespace vantrel
