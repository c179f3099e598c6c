#pragma once

#include <QString>
#include <cstdint>

namespace vantrel {

/// @file What the layout routines ask the store. Names are joined in as they are: one with an
/// apostrophe makes a statement the store does not take.

inline QString ObjectsOfLayout(const QString& layoutName)
{
    return QStringLiteral("SELECT * FROM [Controls] WHERE [LayoutName] = '") + layoutName +
           QLatin1Char('\'');
}

inline QString ObjectsOfPage(const QString& layoutName, std::int16_t page)
{
    return ObjectsOfLayout(layoutName) + QStringLiteral(" AND [Page] = ") + QString::number(page);
}

inline QString PagesOfLayout(const QString& layoutName)
{
    return QStringLiteral("SELECT DISTINCT [Page] FROM [Controls] WHERE [LayoutName] = '") +
           layoutName + QLatin1Char('\'');
}

inline QString ParamsOfLayout(const QString& layoutName)
{
    return QStringLiteral("SELECT * FROM [LayoutParams] WHERE [LayoutName] = '") + layoutName +
           QLatin1Char('\'');
}

inline QString ParamsOfPage(const QString& layoutName, std::int16_t page)
{
    return ParamsOfLayout(layoutName) + QStringLiteral(" AND [PageIndex] = ") +
           QString::number(page);
}

/// The key and the filter of a layout's pages; the first row holds the filter that is edited.
inline QString FilterOfLayout(const QString& layoutName)
{
    return QStringLiteral("SELECT [ID], [Filter] FROM [LayoutParams] WHERE [LayoutName] = '") +
           layoutName + QLatin1Char('\'');
}

/// The elements of a layout's output stream, in their order.
inline QString StreamOfLayout(const QString& layoutName)
{
    return QStringLiteral("SELECT * FROM [Serializer] WHERE [LayoutName] = '") + layoutName +
           QLatin1Char('\'');
}

} // namespace vantrel
