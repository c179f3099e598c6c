#include "printers/PrinterSetup.h"
#include "base/Convert.h"
#include "base/Profile.h"
#include "base/Skip.h"
#include "printers/DotsPerInch.h"
#include <QChar>
#include <algorithm>

namespace vantrel {

namespace {

constexpr QLatin1StringView StripeByOption{"option"};

/// Whether a print server accepts the text as the name of an option.
bool IsOptionName(const QString& name)
{
    constexpr QLatin1StringView alsoAllowed{"-_."};
    return std::all_of(name.begin(), name.end(), [&](QChar character) {
        return character.unicode() < 128 &&
               (character.isLetterOrNumber() || alsoAllowed.contains(character));
    });
}

} // namespace

PrinterSetupFile::PrinterSetupFile(QString path, const QString& deviceName)
    : m_path(std::move(path)), m_section(QStringLiteral("Printer ") + deviceName)
{}

const PrinterSetup& PrinterSetupFile::Current()
{
    if (m_path.isEmpty())
        return m_setup;
    const FileStamp stamp = StampOfFile(m_path);
    if (stamp != m_stamp) {
        m_stamp = stamp;
        m_setup = Read();
    }
    return m_setup;
}

PrinterSetup PrinterSetupFile::Read() const
{
    const auto value = [this](const QString& key) {
        return ReadProfileValue(m_path, m_section, key, QString());
    };
    PrinterSetup setup;
    if (value(QStringLiteral("StripeChannel")).compare(StripeByOption, Qt::CaseInsensitive) == 0) {
        for (std::size_t i = 0; i < setup.StripeOptions.size(); ++i) {
            const QString name = value(QStringLiteral("StripeOption%1").arg(i + 1));
            // An option can hold one track only; a second one would replace it.
            const auto& before = setup.StripeOptions;
            if (IsOptionName(name) && std::find(before.begin(), before.end(), name) == before.end())
                setup.StripeOptions[i] = name;
        }
    }
    Skip("offset X", [&] { setup.OffsetX = ToLong(value(QStringLiteral("OffsetX"))); });
    Skip("offset Y", [&] { setup.OffsetY = ToLong(value(QStringLiteral("OffsetY"))); });
    Skip("dots per inch",
         [&] { setup.DotsPerInch = UsableDots(ToLong(value(QStringLiteral("DotsPerInch")))); });
    return setup;
}

} // namespace vantrel
