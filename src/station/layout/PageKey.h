#pragma once

#include <QString>
#include <cstdint>

namespace vantrel {

class Session;

/// One page of one layout, as its rows know it.
struct PageKey
{
    QString LayoutName;
    std::int16_t Page = 0;

    friend bool operator==(const PageKey&, const PageKey&) = default;
};

/// The page that is open; its layout has no name where none is.
PageKey PageOnForm(const Session& session);

} // namespace vantrel
