#include "FuzzInput.h"
#include "base/Failure.h"
#include "store/postgres/PostgresAddress.h"
#include <QByteArrayList>
#include <algorithm>

// For any text as the address of a store: it is taken or refused with one plain line, a password is
// never taken and never shown, and turning the hosts loses none.

namespace {

using namespace vantrel;

QByteArrayList Sorted(const QByteArray& list)
{
    QByteArrayList entries = list.split(',');
    std::sort(entries.begin(), entries.end());
    return entries;
}

void TurnHosts(const QString& address)
{
    const ServerHosts first = HostsOf(address, 0);
    const bool hasSeveral = first.Names.contains(',') || first.Numbers.contains(',');
    fuzz::Require(hasSeveral || QByteArray(first.Names + first.Numbers + first.Ports).isEmpty(),
                  "the hosts of an address with one host are not turned");
    for (const qsizetype turn : {1, 2, 1000}) {
        const ServerHosts turned = HostsOf(address, turn);
        fuzz::Require(Sorted(turned.Names) == Sorted(first.Names) &&
                          Sorted(turned.Numbers) == Sorted(first.Numbers) &&
                          Sorted(turned.Ports) == Sorted(first.Ports),
                      "the same hosts remain, whichever comes first");
    }
    const qsizetype count = std::max(first.Names.count(','), first.Numbers.count(',')) + 1;
    const ServerHosts around = HostsOf(address, count);
    fuzz::Require(around.Names == first.Names && around.Numbers == first.Numbers &&
                      around.Ports == first.Ports,
                  "after a whole turn the first host comes first");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString address = QString::fromUtf8(fuzz::Input(data, size).Rest());
    IsPostgresAddress(address);
    ShownAddress(address);
    try {
        RequireSafeAddress(address);
    } catch (const Failure& failure) {
        fuzz::Require(!failure.Text().contains(u'\n') && !failure.Text().isEmpty(),
                      "a refusal is one line");
        fuzz::Require(address.size() < 20 || !failure.Text().contains(address),
                      "a refusal shows nothing of the address");
        return 0;
    }
    TurnHosts(address);
    // The same address with a password.
    if (address.startsWith(QStringLiteral("postgresql://")) && !address.contains(u'?')) {
        const QString with = address + QStringLiteral("?password=Geheim4711");
        try {
            RequireSafeAddress(with);
            fuzz::Require(false, "a password is refused");
        } catch (const Failure& failure) {
            fuzz::Require(!failure.Text().contains(QStringLiteral("Geheim4711")),
                          "a refusal shows no password");
        }
        fuzz::Require(!ShownAddress(with).contains(QStringLiteral("Geheim4711")),
                      "what is shown holds no password");
    }
    return 0;
}
