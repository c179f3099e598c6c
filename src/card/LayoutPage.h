#pragma once

#include "card/CardDocument.h"
#include "card/LayoutParamsRecord.h"
#include <QString>

namespace vantrel {

/// A page of a layout in memory: its objects, and how it is printed.
struct LayoutPage
{
    /// The layout that is open on it; empty means none.
    QString LayoutName;
    LayoutParamsRecord Params;
    CardDocument Document;
};

} // namespace vantrel
