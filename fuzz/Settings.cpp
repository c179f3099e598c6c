#include "FuzzInput.h"
#include "base/Failure.h"
#include "ports/HostAccess.h"
#include "ports/SerialSettings.h"
#include "station/session/StationOptions.h"
#include "station/session/StoreLocation.h"
#include <QFile>
#include <QTemporaryDir>
#include <algorithm>

// For any values of the settings that are read by their form: each is taken or counts as missing,
// a mistake names its key in one line, and what is written back is read as the same.

namespace {

using namespace vantrel;

void ReadStation(const QString& folder)
{
    QStringList mistakes;
    const StationOptions options = ReadStationOptions(folder, mistakes);
    for (const QString& mistake : mistakes)
        fuzz::Require(!mistake.isEmpty() && !mistake.contains(u'\n'), "a mistake is one line");
    fuzz::Require(options.LedgerKeepDays >= 0, "days are not below 0");
    fuzz::Require(options.Pool.Name.isEmpty() || options.Ledger, "a pool needs the ledger");
    for (const StationOptionRow& row : StationOptionRows()) {
        StationOptions read;
        row.Read(read, row.Text(options));
        fuzz::Require(row.Text(read) == row.Text(options), "an option is read as it is written");
    }
    ShownLocation(StoreLocation(folder));
}

void ReadHosts(const QString& text)
{
    const HostAccess access(text);
    if (text.trimmed().isEmpty())
        return;
    // A list without any address lets nobody in.
    if (!text.contains(u'.') && !text.contains(u':') && !text.contains(u'/') &&
        std::none_of(text.begin(), text.end(), [](QChar c) { return c.isDigit(); }))
        fuzz::Require(!access.Allows(QHostAddress(QStringLiteral("192.168.7.10"))),
                      "a list without an address lets nobody in");
    fuzz::Require(access.Allows(QHostAddress(QStringLiteral("::ffff:10.0.0.5"))) ==
                      access.Allows(QHostAddress(QStringLiteral("10.0.0.5"))),
                  "an address counts in both of its forms");
}

void ReadSerial(const QString& text)
{
    try {
        const SerialSettings settings = ReadSerialSettings(text);
        fuzz::Require(settings.Speed > 0 && settings.DataBits >= 5 && settings.DataBits <= 8,
                      "values are within their limits");
        fuzz::Require(ReadSerialSettings(SerialSettingsText(settings)) == settings,
                      "settings are read as they are written");
    } catch (const Failure& failure) {
        fuzz::Require(failure.Number() == FailureNumber::InvalidCall, "a refusal says so");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const QTemporaryDir folder;
    fuzz::Input input(data, size);
    const QString hosts = input.Line();
    const QString serial = input.Line();
    ReadHosts(hosts);
    ReadSerial(serial);
    {
        QFile file(folder.filePath(QStringLiteral("Vantrel 6.ini")));
        fuzz::Require(file.open(QIODevice::WriteOnly), "the file can be written");
        file.write(input.Rest());
    }
    ReadStation(folder.path());
    return 0;
}
