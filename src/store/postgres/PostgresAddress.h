#pragma once

#include <QByteArray>
#include <QString>

namespace vantrel {

/// Whether a text is the address of a PostgreSQL database and not a path: it begins with
/// `postgresql://` or `postgres://`, or with a keyword and an equals sign, as `host=db1`.
bool IsPostgresAddress(const QString& text);

/// Fails with `InvalidCall` and one plain line, which shows nothing of the address, if it cannot be
/// understood or holds a password.
void RequireSafeAddress(const QString& address);

/// The hosts of an address, each a list with commas between them; empty where it names none.
struct ServerHosts
{
    QByteArray Names;
    QByteArray Numbers;
    QByteArray Ports;
};

/// The hosts of an address that names several, turned so that one of them comes first; nothing of
/// an address with one host.
/// @param first  its index from 0, of which the remainder by the number of hosts is taken
ServerHosts HostsOf(const QString& address, qsizetype first);

/// What people are shown of an address: the hosts and the database's name.
QString ShownAddress(const QString& address);

} // namespace vantrel
