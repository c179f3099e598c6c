#pragma once

#include <QString>
#include <cstdint>

namespace vantrel {

/// @file The statements of the layout functions. Names are inserted unescaped; a name with an
/// apostrophe makes a statement that fails with `StatementInvalid`.

/// All objects of a layout.
inline QString ObjectsOfLayout(const QString& layoutName)
{
    return QStringLiteral("SELECT * FROM [Controls] WHERE [LayoutName] = '") + layoutName +
           QLatin1Char('\'');
}

/// All objects of one page.
inline QString ObjectsOfPage(const QString& layoutName, std::int16_t page)
{
    return ObjectsOfLayout(layoutName) + QStringLiteral(" AND [Page] = ") + QString::number(page);
}

/// The extras of the objects of a layout; only where `HasExtras` is true.
inline QString ExtrasOfLayout(const QString& layoutName)
{
    return QStringLiteral("SELECT * FROM [ObjectExtras] WHERE [LayoutName] = '") + layoutName +
           QLatin1Char('\'');
}

/// The extras of the objects of one page; only where `HasExtras` is true.
inline QString ExtrasOfPage(const QString& layoutName, std::int16_t page)
{
    return ExtrasOfLayout(layoutName) + QStringLiteral(" AND [Page] = ") + QString::number(page);
}

/// The page numbers of a layout.
inline QString PagesOfLayout(const QString& layoutName)
{
    return QStringLiteral("SELECT DISTINCT [Page] FROM [Controls] WHERE [LayoutName] = '") +
           layoutName + QLatin1Char('\'');
}

/// The parameters of all pages of a layout.
inline QString ParamsOfLayout(const QString& layoutName)
{
    return QStringLiteral("SELECT * FROM [LayoutParams] WHERE [LayoutName] = '") + layoutName +
           QLatin1Char('\'');
}

/// The parameters of one page.
inline QString ParamsOfPage(const QString& layoutName, std::int16_t page)
{
    return ParamsOfLayout(layoutName) + QStringLiteral(" AND [PageIndex] = ") +
           QString::number(page);
}

/// Key and filter of a layout's pages; the filter of the first row is the one that is edited.
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
