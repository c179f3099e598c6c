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

} // namespace

QString FramingText(const Delimiters& delimiters, const Filters& filters)
{
    QJsonArray filterNames;
    for (const FilterName& row : FilterNames) {
        if (filters.*row.Flag)
            filterNames.append(QLatin1StringView(row.Name));
    }
    const QJsonObject framing{{QStringLiteral("start"), delimiters.DataStart},
                              {QStringLiteral("separator"), delimiters.DataSeperator},
                              {QStringLiteral("end"), delimiters.DataEnd},
                              {QStringLiteral("filters"), filterNames}};
    return QString::fromUtf8(QJsonDocument(framing).toJson(QJsonDocument::Compact));
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
