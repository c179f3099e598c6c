#include "CheckCommand.h"
#include "LedgerOptions.h"
#include "Output.h"
#include "TextTable.h"
#include "base/Failure.h"
#include "base/HarmlessText.h"
#include "station/layout/LayoutCheck.h"
#include "station/layout/Navigation.h"
#include "station/session/StationOptions.h"
#include "station/session/StoreLocation.h"
#include "store/Connection.h"
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace vantrel::admin {

namespace {

using Align = TextTable::Align;

constexpr TextTable::Column OfFindings[] = {
    {"Layout", Align::Left, 24}, {"Page", Align::Right},       {"Weight"},
    {"Object", Align::Left, 32}, {"Finding", Align::Left, 80}, {"What to do"},
};

PictureSource PicturesOf(const QString& folder)
{
    QStringList mistakes;
    const QString images = ReadStationOptions(folder, mistakes).ImagesFrom;
    return {.Folder = images.isEmpty() ? QString() : QDir(folder).filePath(images)};
}

QStringList LayoutsOf(Connection& store, const QStringList& wanted)
{
    const QStringList all = LayoutNames(store);
    for (const QString& name : wanted) {
        if (!all.contains(name))
            throw Failure(FailureNumber::ItemNotFound,
                          QStringLiteral("There is no layout %1.").arg(name));
    }
    return wanted.isEmpty() ? all : wanted;
}

QStringList RowFor(const QString& layout, const Finding& finding)
{
    const QString what = finding.Detail.isEmpty()
                             ? finding.What
                             : finding.What + QStringLiteral(": ") + finding.Detail;
    return {HarmlessText(layout),
            QString::number(finding.Page),
            WordOf(RowOf(finding.Kind).Weight),
            HarmlessText(finding.Where),
            HarmlessText(what),
            HarmlessText(finding.Advice)};
}

QJsonObject JsonFor(const QString& layout, const Finding& finding)
{
    const FindingRow& row = RowOf(finding.Kind);
    return {{QStringLiteral("layout"), layout},
            {QStringLiteral("page"), finding.Page},
            {QStringLiteral("kind"), QString(row.Word)},
            {QStringLiteral("weight"), QString(WordOf(row.Weight))},
            {QStringLiteral("object"), finding.Where},
            {QStringLiteral("what"), finding.What},
            {QStringLiteral("detail"), finding.Detail},
            {QStringLiteral("advice"), finding.Advice}};
}

/// Layouts with what was found on them.
using FoundOn = std::vector<std::pair<QString, Findings>>;

void WriteTable(const FoundOn& found)
{
    TextTable table(OfFindings, WriteOutput);
    for (const auto& [layout, findings] : found) {
        for (const Finding& finding : findings)
            table.Add(RowFor(layout, finding));
    }
    table.End();
}

void WriteJson(const FoundOn& found)
{
    QJsonArray list;
    for (const auto& [layout, findings] : found) {
        for (const Finding& finding : findings)
            list.append(JsonFor(layout, finding));
    }
    const QJsonObject whole{{QStringLiteral("findings"), list}};
    WriteOutput(QJsonDocument(whole).toJson(QJsonDocument::Compact) + '\n');
}

} // namespace

void RunCheck(const Words& words)
{
    const QString& folder = words.Arguments.at(0);
    Connection store;
    store.Open(StoreLocation(folder));
    const PictureSource pictures = PicturesOf(folder);
    FoundOn found;
    qsizetype count = 0;
    for (const QString& name : LayoutsOf(store, words.Arguments.mid(1))) {
        found.emplace_back(name,
                           CheckLayout({.LayoutDb = store, .Name = name, .Pictures = pictures}));
        count += std::ssize(found.back().second);
    }
    if (words.Has(JsonOption.Name))
        WriteJson(found);
    else if (count > 0)
        WriteTable(found);
    else
        WriteOutput("Nothing found.\n");
    FlushOutput();
    if (count > 0)
        throw Failure(FailureNumber::InvalidCall,
                      QStringLiteral("%1 found on the layouts.")
                          .arg(count == 1 ? QStringLiteral("1 thing was")
                                          : QStringLiteral("%1 things were").arg(count)));
}

} // namespace vantrel::admin
