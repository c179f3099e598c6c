#pragma once

#include <QString>
#include <cstdint>

namespace vantrel {

class Session;

/// The key of one page of one layout; pages count from 1.
struct PageKey
{
    QString LayoutName;
    std::int16_t Page = 0;

    friend bool operator==(const PageKey&, const PageKey&) = default;
};

/// The open page; the layout name is empty if no layout is open.
PageKey PageOnForm(const Session& session);

} // namespace vantrel
