#include "station/session/StationOptions.h"
#include "base/Convert.h"
#include "base/Failure.h"
#include "base/Profile.h"
#include "station/session/Settings.h"
#include <algorithm>

namespace vantrel {

namespace {

const QString StationSection = QStringLiteral("Station");

constexpr const char* EncodingNames[] = {"cp1252", "utf-8"};

/// The words for the values of an option that is one of several, in the order of its enumeration.
constexpr std::span<const char* const> WordsFor(InputEncoding /*encoding*/)
{
    return EncodingNames;
}
constexpr std::span<const char* const> WordsFor(LengthUnit /*unit*/)
{
    return LengthUnitNames;
}

[[noreturn]] void Refuse()
{
    throw Failure(FailureNumber::TypeMismatch, QStringLiteral("Not a value of this key"));
}

template <auto Option>
void ReadInto(StationOptions& options, const QString& text)
{
    auto& option = options.*Option;
    using Type = std::remove_reference_t<decltype(option)>;
    if constexpr (std::is_same_v<Type, bool>) {
        option = ToBoolean(text);
    } else if constexpr (std::is_same_v<Type, std::int32_t>) {
        const std::int32_t days = ToWholeLong(text);
        if (days < 0)
            Refuse();
        option = days;
    } else if constexpr (std::is_same_v<Type, QString>) {
        option = text;
    } else {
        const auto words = WordsFor(option);
        const QString word = text.trimmed().toLower();
        const auto found = std::ranges::find_if(
            words, [&](const char* of) { return word == QLatin1StringView(of); });
        if (found == words.end())
            Refuse();
        option = static_cast<Type>(found - words.begin());
    }
}

template <auto Option>
QString TextOf(const StationOptions& options)
{
    const auto& option = options.*Option;
    using Type = std::remove_cvref_t<decltype(option)>;
    if constexpr (std::is_same_v<Type, bool>)
        return BooleanText(option);
    else if constexpr (std::is_same_v<Type, std::int32_t>)
        return QString::number(option);
    else if constexpr (std::is_same_v<Type, QString>)
        return option;
    else
        return QLatin1StringView(WordsFor(option)[static_cast<std::size_t>(option)]);
}

template <auto Option>
constexpr OptionKind KindOf()
{
    using Type = std::remove_cvref_t<decltype(StationOptions().*Option)>;
    if constexpr (std::is_same_v<Type, bool>)
        return OptionKind::YesOrNo;
    else if constexpr (std::is_same_v<Type, std::int32_t>)
        return OptionKind::Number;
    else if constexpr (std::is_same_v<Type, QString>)
        return OptionKind::Folder;
    else
        return OptionKind::Choice;
}

template <auto Option>
constexpr StationOptionRow Row(const char* key, const char* group, const char* caption,
                               const char* absent, const char* meaning, const char* otherwise,
                               OptionEffect effect, const char* recommended = nullptr,
                               std::span<const char* const> choices = {})
{
    return {key,    caption,          group,   absent,      meaning,          otherwise,
            effect, KindOf<Option>(), choices, recommended, ReadInto<Option>, TextOf<Option>};
}

constexpr OptionEffect AtStart = OptionEffect::AtStart;
constexpr OptionEffect AtOnce = OptionEffect::AtOnce;

// clang-format off
constexpr StationOptionRow Rows[] = {
    Row<&StationOptions::Ledger>(
        "Ledger", "Ledger", "Keep a ledger", "False",
        "writes each record durably before its card begins, and the outcome of each card behind it",
        "Nothing is kept of a record once its card is printed.", AtStart, "True"),
    Row<&StationOptions::LedgerKeepDays>(
        "LedgerKeepDays", "Ledger", "Days to keep entries", "90",
        "days after which entries of the ledger are removed, a few at a time; `0` keeps all",
        "Entries are kept for 90 days.", AtOnce),
    Row<&StationOptions::LedgerMust>(
        "LedgerMust", "Ledger", "Print only with the ledger", "False",
        "takes no record while the ledger cannot be written; else the station says so and prints on without it",
        "A ledger that cannot be written stops nothing.", AtOnce),
    Row<&StationOptions::LedgerValues>(
        "LedgerValues", "Ledger", "Keep the values of records", "True",
        "keeps no value of a record, only its length, the number of its values and a keyed hash; "
        "such an entry cannot be printed again",
        "The values of each record are kept with its entry.", AtStart),
    Row<&StationOptions::KeepEveryRecord>(
        "KeepEveryRecord", "Records", "Keep every record", "False",
        "gives each connection and serial port an input of its own and prints every record in it, one "
        "after the other",
        "All ports share one input, and what follows the end of a record is dropped.", AtStart, "True"),
    Row<&StationOptions::AnswerHost>(
        "AnswerHost", "Records", "Answer hosts", "False",
        "answers each record with a line: `OK ID CARDS` or `ERR ID REASON`",
        "Nothing is sent back to hosts.", AtOnce),
    Row<&StationOptions::UniqueNumbers>(
        "UniqueNumbers", "Cards", "Give each number once", "False",
        "takes an automatic number from the store durably before its page is drawn, so that it is given "
        "at most once",
        "A number is stored after its page, so it may come twice if the station is killed in between.",
        AtStart, "True"),
    Row<&StationOptions::ImagesFrom>(
        "ImagesFrom", "Cards", "Folder of photos", "",
        "the folder of photos for records: an image whose path holds `{1}`, `{2}` and so on shows the "
        "photo that these values of the record name; a relative path begins at the program folder",
        "An image shows the same picture on every card.", AtStart),
    Row<&StationOptions::Encoding>(
        "Encoding", "Records", "Encoding of input", "cp1252",
        "how bytes from hosts and serial ports are read: `cp1252` or `utf-8`",
        "A byte is a character of Windows code page 1252.", AtStart, nullptr, EncodingNames),
    Row<&StationOptions::DesignTools>(
        "DesignTools", "Cards", "Design tools", "False",
        "takes steps of the designer back, copies, aligns and moves objects by keys, asks before "
        "unsaved changes are lost, and prints records from the saved layout, behind the one on the screen",
        "The designer does none of this, a record throws away what is not saved, and the menu \"Station\" is "
        "shown only where a ledger is kept.",
        AtStart, "True"),
    Row<&StationOptions::Unit>(
        "LengthUnit", "Cards", "Unit of lengths", "mm",
        "the unit of lengths in the design tools: `mm`, `inch` or `twips`, which are 1440 to the inch",
        "Lengths are shown in millimetres.", AtOnce, nullptr, LengthUnitNames),
};
// clang-format on

QString Sentence(const char* text)
{
    QString sentence = QString(QLatin1StringView(text)).remove(u'`');
    sentence[0] = sentence[0].toUpper();
    return sentence.endsWith(u'.') ? sentence : sentence + u'.';
}

/// A sentence behind a colon.
QString Behind(const QString& word, const char* text)
{
    QString sentence = Sentence(text);
    sentence[0] = sentence[0].toLower();
    return word + QStringLiteral(": ") + sentence;
}

} // namespace

std::span<const StationOptionRow> StationOptionRows()
{
    return Rows;
}

QString OptionExplanation(const StationOptionRow& row)
{
    const QString absent = QLatin1StringView(row.Default);
    QStringList parts;
    if (absent == BooleanText(true))
        parts = {Behind(QStringLiteral("Unticked"), row.Meaning),
                 Behind(QStringLiteral("Ticked"), row.Otherwise)};
    else if (absent == BooleanText(false))
        parts = {Sentence(row.Meaning), Behind(QStringLiteral("Unticked"), row.Otherwise)};
    else
        parts = {Sentence(row.Meaning), Behind(QStringLiteral("As it is at first"), row.Otherwise)};
    return parts.join(u'\n');
}

StationOptions ReadStationOptions(const QString& programFolder, QStringList& mistakes)
{
    StationOptions options;
    for (const StationOptionRow& row : Rows) {
        const QString key = QLatin1StringView(row.Key);
        const QString text = StationOption(programFolder, key);
        if (text.isEmpty())
            continue;
        try {
            row.Read(options, text);
        } catch (const Failure&) {
            mistakes.append(QStringLiteral("The key %1 in the section [Station] of the settings "
                                           "file has no such value and counts as missing: %2")
                                .arg(key, text));
        }
    }
    options.Pool = ReadStationPool(programFolder, mistakes);
    if (!options.Pool.Name.isEmpty() && !options.LedgerValues) {
        mistakes.append(QStringLiteral("The key Pool in the section [Store] of the settings file "
                                       "counts as missing: where the values of records are not "
                                       "kept, no other station could print them"));
        options.Pool = {};
    }
    if (!options.Pool.Name.isEmpty())
        options.Ledger = true;
    return options;
}

std::vector<const StationOptionRow*> ChangedOptions(const StationOptions& before,
                                                    const StationOptions& after)
{
    std::vector<const StationOptionRow*> changed;
    for (const StationOptionRow& row : Rows) {
        if (row.Text(before) != row.Text(after))
            changed.push_back(&row);
    }
    return changed;
}

bool WriteStationOptions(const QString& programFolder, const StationOptions& before,
                         const StationOptions& after)
{
    const auto changed = ChangedOptions(before, after);
    return std::ranges::all_of(changed, [&](const StationOptionRow* row) {
        return WriteProfileValue(SettingsPath(programFolder), StationSection,
                                 QLatin1StringView(row->Key), row->Text(after));
    });
}

} // namespace vantrel
