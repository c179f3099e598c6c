#include "ledger/LedgerRows.h"
#include <array>

namespace vantrel {

namespace {

/// In the order of the enumeration.
constexpr std::array StateNames{"received", "printing", "printed", "done",
                                "failed",   "doubtful", "void"};

} // namespace

QString NameOf(LedgerState state)
{
    return QLatin1StringView(StateNames.at(static_cast<std::size_t>(state)));
}

std::optional<LedgerState> LedgerStateOf(QStringView name)
{
    for (std::size_t state = 0; state < StateNames.size(); ++state) {
        if (name == QLatin1StringView(StateNames.at(state)))
            return static_cast<LedgerState>(state);
    }
    return {};
}

QStringList LedgerStateNames()
{
    QStringList names;
    for (const char* name : StateNames)
        names.append(QLatin1StringView(name));
    return names;
}

} // namespace vantrel
