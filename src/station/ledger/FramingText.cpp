#include "station/ledger/FramingText.h"
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace vantrel {

namespace {

/// A filter flag and its name in the ledger.
struct FilterName
{
    bool Filters::*Flag;
    const char* Name;
};

constexpr FilterName FilterNames[] = {
    {&Filters::Cr, "cr"},       {&Filters::Lf, "lf"},   {&Filters::Tab, "tab"},
    {&Filters::Space, "space"}, {&Filters::Esc, "esc"}, {&Filters::NewPage, "newpage"},
};

constexpr QLatin1StringView Images{"images"};
constexpr QLatin1StringView Columns{"columns"};

QString TextOf(const QJsonObject& framing)
{
    return QString::fromUtf8(QJsonDocument(framing).toJson(QJsonDocument::Compact));
}

QJsonObject ObjectOf(const Delimiters& delimiters, const Filters& filters)
{
    QJsonArray filterNames;
    for (const FilterName& row : FilterNames) {
        if (filters.*row.Flag)
            filterNames.append(QLatin1StringView(row.Name));
    }
    return {{QStringLiteral("start"), delimiters.DataStart},
            {QStringLiteral("separator"), delimiters.DataSeperator},
            {QStringLiteral("end"), delimiters.DataEnd},
            {QStringLiteral("filters"), filterNames}};
}

} // namespace

QString FramingText(const Delimiters& delimiters, const Filters& filters)
{
    return TextOf(ObjectOf(delimiters, filters));
}

QString FramingTextOfRow(const PictureSource& pictures)
{
    QJsonObject framing =
        ObjectOf({.DataStart = {}, .DataSeperator = QStringLiteral(","), .DataEnd = {}}, {});
    framing.insert(Images, pictures.Folder);
    framing.insert(Columns, QJsonArray::fromStringList(pictures.Columns));
    return TextOf(framing);
}

PictureSource PicturesOf(const QString& text, const PictureSource& usual)
{
    const QJsonObject framing = QJsonDocument::fromJson(text.toUtf8()).object();
    if (!framing.contains(Images))
        return usual;
    PictureSource pictures;
    pictures.Folder = framing.value(Images).toString();
    for (const auto& name : framing.value(Columns).toArray())
        pictures.Columns.append(name.toString());
    return pictures;
}

KeptFraming ReadFraming(const QString& text)
{
    const QJsonObject framing = QJsonDocument::fromJson(text.toUtf8()).object();
    KeptFraming kept;
    kept.Delimiters = {framing.value(QStringLiteral("start")).toString(),
                       framing.value(QStringLiteral("separator")).toString(),
                       framing.value(QStringLiteral("end")).toString()};
    const QJsonArray filters = framing.value(QStringLiteral("filters")).toArray();
    for (const FilterName& row : FilterNames)
        kept.Filters.*row.Flag = filters.contains(QJsonValue(QLatin1StringView(row.Name)));
    return kept;
}

} // namespace vantrel
