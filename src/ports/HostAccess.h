#pragma once

#include <QHostAddress>
#include <QList>
#include <QString>

namespace vantrel {

/// Which hosts may send to the station.
class HostAccess
{
public:
    /// Everybody may.
    HostAccess() = default;
    /// Addresses and networks, such as "10.0.0.5, 192.168.7.0/24, fd00::/8", separated by commas.
    /// The empty text lets everybody send. An entry that is no address lets nobody in, so that a
    /// slip of the pen closes a station and never opens it.
    explicit HostAccess(const QString& allowFrom);

    bool Allows(const QHostAddress& host) const;

private:
    bool m_restricted = false;
    QList<QPair<QHostAddress, int>> m_networks;
};

/// An address as a host of its own kind: an IPv4 host that came over an IPv6 socket is one again.
QHostAddress PlainAddress(const QHostAddress& address);

} // namespace vantrel
