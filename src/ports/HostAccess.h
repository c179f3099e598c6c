#pragma once

#include <QHostAddress>
#include <QList>
#include <QString>

namespace vantrel {

/// The hosts that may send records to the station.
class HostAccess
{
public:
    /// Allows every host.
    HostAccess() = default;
    /// Allows the listed addresses and networks, separated by commas, such as "10.0.0.5,
    /// 192.168.7.0/24, fd00::/8". An empty text allows every host. An entry that is not an address
    /// allows no host at all, so that a typing error never opens a station.
    explicit HostAccess(const QString& allowFrom);

    /// Whether the host may send. Never fails.
    bool Allows(const QHostAddress& host) const;

private:
    bool m_restricted = false;
    QList<QPair<QHostAddress, int>> m_networks;
};

/// @return the address, with an IPv4 address mapped into IPv6 converted back to IPv4
QHostAddress PlainAddress(const QHostAddress& address);

} // namespace vantrel
