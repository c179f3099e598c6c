#include "ports/HostAccess.h"
#include <algorithm>

namespace vantrel {

HostAccess::HostAccess(const QString& allowFrom) : m_restricted(!allowFrom.trimmed().isEmpty())
{
    for (const QString& entry : allowFrom.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        const auto network = QHostAddress::parseSubnet(entry.trimmed());
        if (!network.first.isNull() && network.second >= 0)
            m_networks.append(network);
    }
}

bool HostAccess::Allows(const QHostAddress& host) const
{
    if (!m_restricted)
        return true;
    const QHostAddress plain = PlainAddress(host);
    return std::any_of(m_networks.begin(), m_networks.end(),
                       [&](const auto& network) { return plain.isInSubnet(network); });
}

QHostAddress PlainAddress(const QHostAddress& address)
{
    bool isIPv4 = false;
    const quint32 mapped = address.toIPv4Address(&isIPv4);
    return isIPv4 ? QHostAddress(mapped) : address;
}

} // namespace vantrel
