#pragma once

#include "base/InputText.h"
#include "base/LengthUnit.h"
#include "station/session/StationPool.h"
#include <QString>
#include <QStringList>
#include <cstdint>
#include <span>
#include <vector>

namespace vantrel {

/// What an administrator has switched on for all sessions of a program folder, in the section
/// "Station" of its settings file. With nothing set there, everything here is off.
struct StationOptions
{
    /// Each record and the outcome of each of its cards are written into the layout database.
    bool Ledger = false;
    /// Days after which entries are removed; 0 keeps all.
    std::int32_t LedgerKeepDays = 90;
    /// While the ledger cannot be written, no record is taken.
    bool LedgerMust = false;
    /// Whether the values of records are kept; if not, only their length, number and a keyed hash.
    bool LedgerValues = true;
    /// Every connection and serial port has an input of its own, and nothing behind the end of a
    /// record is dropped.
    bool KeepEveryRecord = false;
    /// Each record is answered with one line.
    bool AnswerHost = false;
    /// Automatic numbers are taken from the store durably before their page is drawn.
    bool UniqueNumbers = false;
    InputEncoding Encoding = InputEncoding::CodePage1252;
    /// The folder of the pictures that records name, as it is written in the file; empty for none.
    QString ImagesFrom = {};
    /// Steps of the designer can be taken back, several objects be selected, copied and aligned,
    /// and the operator is asked before unsaved changes are lost. The menu "Station" is shown also
    /// where no ledger is kept.
    bool DesignTools = false;
    /// The unit in which the design tools show lengths, and take typed ones that name no unit.
    LengthUnit Unit = LengthUnit::Millimetres;
    /// The pool that the stations belong to, which the section "Store" names. A pool needs the
    /// ledger, which is on then, and the values of records.
    StationPool Pool = {};

    /// Whether no record may be taken while the ledger cannot be written.
    bool NeedsLedger() const { return LedgerMust || Pool.Takes(); }
};

/// When a changed option takes effect.
enum class OptionEffect {
    /// With the next start of a session.
    AtStart,
    /// At once in the session that changes it, in others with their next start.
    AtOnce,
};

/// What the values of an option are.
enum class OptionKind { YesOrNo, Number, Choice, Folder };

/// One key of the section "Station" that belongs to `StationOptions`.
struct StationOptionRow
{
    const char* Key;
    /// What operators call it, and what it belongs to.
    const char* Caption;
    const char* Group;
    /// The value that counts where the key is missing.
    const char* Default;
    /// What the other value of a yes or no does, or what the value is; in one line without a full
    /// stop.
    const char* Meaning;
    /// The behaviour where the key is missing, likewise.
    const char* Otherwise;
    OptionEffect Effect;
    OptionKind Kind;
    /// The values to choose from; empty for other kinds.
    std::span<const char* const> Choices;
    /// The value of a new folder made by `vantrel-admin new`; null for the default.
    const char* Recommended;
    /// Converts the text into its option. Fails with `Failure` for a text that is no value of it.
    void (*Read)(StationOptions& options, const QString& text);
    /// The option's present value as it is written to the file.
    QString (*Text)(const StationOptions& options);
};

/// All keys, in the order of the guide and of the options window.
std::span<const StationOptionRow> StationOptionRows();

/// What an option changes and what it keeps, in a line each for operators.
QString OptionExplanation(const StationOptionRow& row);

/// Reads the options from "Vantrel 6.ini" in the program folder. A bad value counts as missing.
/// @param mistakes  receives one line for each bad value, which names key and value
StationOptions ReadStationOptions(const QString& programFolder, QStringList& mistakes);

/// The options that `after` has with another value than `before`, in the order of the table.
std::vector<const StationOptionRow*> ChangedOptions(const StationOptions& before,
                                                    const StationOptions& after);
/// Writes the keys of the options that were changed, and no others, to the settings file.
/// @return false if the file cannot be written; keys before the one that failed are then written
bool WriteStationOptions(const QString& programFolder, const StationOptions& before,
                         const StationOptions& after);

} // namespace vantrel
