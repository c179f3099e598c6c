#pragma once

#include <QString>

namespace vantrel {

/// A font as the store and the dialogs describe it. `Size` is in points, with up to four decimals.
struct Font
{
    QString Name = QStringLiteral("Sans");
    double Size = 10.0;
    bool Bold = false;
    bool Italic = false;
    bool Underline = false;
    bool Strikethrough = false;

    friend bool operator==(const Font&, const Font&) = default;
};

} // namespace vantrel
