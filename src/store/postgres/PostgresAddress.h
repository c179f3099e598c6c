#pragma once

#include <QString>

namespace vantrel {

/// Whether a text is the address of a PostgreSQL database and not a path: it begins with
/// `postgresql://` or `postgres://`, or with a keyword and an equals sign, as `host=db1`.
bool IsPostgresAddress(const QString& text);

/// Fails with `InvalidCall` and one plain line, which shows nothing of the address, if it cannot be
/// understood or holds a password.
void RequireSafeAddress(const QString& address);

/// What people are shown of an address: the hosts and the database's name.
QString ShownAddress(const QString& address);

} // namespace vantrel
