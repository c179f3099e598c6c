#pragma once

#include "base/Font.h"
#include <QFont>

namespace vantrel {

/// @file Conversions between the station's fonts and Qt's.

inline QFont DialogFont(const Font& font)
{
    QFont dialog(font.Name);
    dialog.setPointSizeF(font.Size);
    dialog.setBold(font.Bold);
    dialog.setItalic(font.Italic);
    dialog.setUnderline(font.Underline);
    dialog.setStrikeOut(font.Strikethrough);
    return dialog;
}

inline Font StoredFont(const QFont& font)
{
    return {.Name = font.family(),
            .Size = font.pointSizeF(),
            .Bold = font.bold(),
            .Italic = font.italic(),
            .Underline = font.underline(),
            .Strikethrough = font.strikeOut()};
}

} // namespace vantrel
