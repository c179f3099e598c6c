#include "station/session/SettingsGuide.h"
#include "station/session/SettingsTable.h"
#include "station/session/StationOptions.h"
#include <span>

namespace vantrel {

namespace {

/// A key that is not in the table of session settings.
struct KeyRow
{
    const char* Key;
    const char* Default;
    const char* Meaning;
};

constexpr KeyRow StatusKeys[] = {
    {"Visible", "True", "shows or hides the window of a running session"},
    {"Active", "", "`False` ends a running session in order"},
};

constexpr KeyRow StationKeys[] = {
    {"BindAddress", "", "the one address to listen on; without it, all of the machine"},
    {"AllowFrom", "", "hosts and networks that may connect, with commas between; without it, all"},
    {"Camera", "", "`default`, a camera's name, or `folder:` and the path of a folder of pictures"},
    {"PdfImport", "False", "whether \"Import PDF File ...\" makes a picture of the first page"},
};

constexpr KeyRow StoreKeys[] = {
    {"Database", "",
     "address of the PostgreSQL database that keeps the layouts, such as `postgresql://HOST/NAME`; "
     "without it, `Vantrel.dat` in the program folder"},
    {"Pool", "",
     "name of the pool of stations that share the records from their hosts; sets `Ledger`"},
    {"Work", "both",
     "what a station does in its pool: `take` records from hosts, `print` their cards, or `both`"},
};

constexpr KeyRow PrinterKeys[] = {
    {"StripeChannel", "", "`option` sends the stripe in job options; else it is text on the page"},
    {"StripeOption1", "", "job option for track 1"},
    {"StripeOption2", "", "job option for track 2"},
    {"StripeOption3", "", "job option for track 3"},
    {"OffsetX", "0", "moves what is drawn to the right, twips"},
    {"OffsetY", "0", "moves what is drawn down, twips"},
    {"DotsPerInch", "",
     "dots of the printer, for bar codes; without it what the print server tells, else 300"},
};

constexpr KeyRow SerialKeys[] = {
    {"COM1", "/dev/ttyS0", "device of serial port 1"},
    {"COM2 ... COM16", "/dev/ttyS1 ... /dev/ttyS15", "devices of the other ports"},
};

QString Line(const QString& key, const QString& absent, const QString& meaning)
{
    const QString shown =
        absent.isEmpty() ? QString() : QLatin1Char('`') + absent + QLatin1Char('`');
    return QStringLiteral("| `%1` | %2 | %3 |\n").arg(key, shown, meaning);
}

QString Heading(const char* title, const char* told)
{
    return QStringLiteral("\n## ") + QLatin1StringView(title) + QStringLiteral("\n\n") +
           QLatin1StringView(told) +
           QStringLiteral("\n\n| Key | Where it is missing | What it does |\n|---|---|---|\n");
}

QString Lines(std::span<const KeyRow> keys)
{
    QString lines;
    for (const KeyRow& row : keys)
        lines += Line(QLatin1StringView(row.Key), QLatin1StringView(row.Default),
                      QLatin1StringView(row.Meaning));
    return lines;
}

/// The meaning of a key that is on where it is missing is that of its other value.
QString MeaningOf(const StationOptionRow& row)
{
    const QString meaning = QLatin1StringView(row.Meaning);
    return QLatin1StringView(row.Default) == QLatin1StringView("True")
               ? QStringLiteral("`False` ") + meaning
               : meaning;
}

} // namespace

QString SettingsGuide()
{
    QString text = QStringLiteral(
        "# Settings\n\n"
        "Every key of the two settings files in the program folder. This page is printed by\n"
        "`vantrel-admin settings`. A value is one line of at most 255 characters; yes and no are\n"
        "`True` and `False`. 1440 twips are an inch.\n");
    text += Heading("`Vantrel 6.ini`, section `[Session N]`",
                    "One section for each session, read when it starts. The windows write a key "
                    "when you change it, so\nedit a session's section while that session is "
                    "stopped.");
    for (const SettingRow& row : SettingsTable)
        text += Line(QLatin1StringView(row.Key), QLatin1StringView(row.Default),
                     QLatin1StringView(row.Meaning));
    text += Heading("`Vantrel 6.ini`, section `[Station]`",
                    "For all sessions, read when a session starts. The window \"Options ...\" and "
                    "`vantrel-admin new` write some of them.");
    text += Lines(StationKeys);
    for (const StationOptionRow& row : StationOptionRows())
        text += Line(QLatin1StringView(row.Key), QLatin1StringView(row.Default), MeaningOf(row));
    text += Heading("`Vantrel 6.ini`, section `[Store]`",
                    "For all sessions, read when a session starts. "
                    "See [A shared store](shared-store.md).");
    text += Lines(StoreKeys);
    text += Heading("`Vantrel 6.ini`, section `[Printer NAME]`",
                    "One section for each printer, read anew when the file changes. "
                    "See [Printers](printers.md).");
    text += Lines(PrinterKeys);
    text += Heading("`Vantrel 6.ini`, section `[Serial Ports]`",
                    "Which device each port is, read when the port is opened.");
    text += Lines(SerialKeys);
    text += Heading("`SessionStatus.ini`, section `[Session N]`",
                    "Read four times a second, so that a launcher can steer a running session.");
    text += Lines(StatusKeys);
    return text;
}

} // namespace vantrel
