#pragma once

#include <QString>
#include <QStringList>
#include <cstdint>
#include <vector>

namespace vantrel {

class Printers;
class Connection;
class Session;

/// @file The logic of the printer selection: the contents of its two lists, and saving.

/// The state of one of the machine's printers at the time of the query.
struct PrinterListRow
{
    /// Key of the row: "True" for a running printer or "False" for a paused one, followed by the
    /// device name.
    QString Key;
    QString DeviceName;
    bool AcceptsJobs = true;
    /// "Active" or "Paused".
    QString Status;
    QString Jobs;
};

/// Queries the state of one printer's queue. Never fails.
PrinterListRow LookAtPrinter(Printers& printers, const QString& deviceName);

/// One printer type of the database.
struct PrinterKindRow
{
    QString Name;
    /// The code of the type as text.
    QString Tag;
    /// "Driver Support" or "No".
    QString ColorCapable;
    QString DualSided;
};

/// The printer types in display order. Rows that cannot be read are skipped. Never fails.
std::vector<PrinterKindRow> ReadPrinterKinds(Connection& layoutDb);

/// @return whether the type has a dialog of its own for its output; only the serialized type has
bool IsConfigurable(const QString& kindTag);

/// The orientation options. `Default` changes neither the printer nor the layout.
enum class OrientationOption { Portrait = 0, Landscape = 1, Default = 2 };

/// @return the option that shows a stored orientation
OrientationOption OptionOf(std::int32_t orientation);

/// What the operator has chosen.
struct PrinterChoice
{
    /// Empty if no printer is selected.
    QString DeviceName;
    /// Empty if no printer type is selected.
    QString KindTag;
    OrientationOption Orientation = OrientationOption::Default;
    int Copies = 1;
    /// Set the document to the size of its printer's page, by the previous printer type.
    bool ForceResize = false;
};

/// Makes the chosen printer current and stores the choice in the open layout's page, in memory and
/// in the database. A failing step is skipped: a printer that no longer exists is stored as well.
/// Without a chosen type the type stays.
void SavePrinterChoice(Session& session, const PrinterChoice& choice);

} // namespace vantrel
