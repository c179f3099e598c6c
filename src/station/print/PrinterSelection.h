#pragma once

#include <QString>
#include <QStringList>
#include <cstdint>
#include <vector>

namespace vantrel {

class Printers;
class Connection;
class Session;

/// @file The rules of the printer selection: what its two lists show, and what saving does.

/// One of the machine's printers as it was when it was looked at.
struct PrinterListRow
{
    /// Name of the row: "True" for a running printer, "False" for a paused one, then the device.
    QString Key;
    QString DeviceName;
    bool AcceptsJobs = true;
    /// "Active" or "Paused".
    QString Status;
    QString Jobs;
};

/// Looks at one printer's queue. Never fails.
PrinterListRow LookAtPrinter(Printers& printers, const QString& deviceName);

/// One kind of printer that a layout can be made for.
struct PrinterKindRow
{
    QString Name;
    /// The kind's code as text.
    QString Tag;
    /// "Driver Support" or "No".
    QString ColorCapable;
    QString DualSided;
};

/// The kinds in their display order. What cannot be read is passed over.
std::vector<PrinterKindRow> ReadPrinterKinds(Connection& layoutDb);

/// @return whether a kind's output is set up in a dialog of its own: the serialized one
bool IsConfigurable(const QString& kindTag);

/// The options of the orientation. The last one leaves both printer and layout as they are.
enum class OrientationOption { Portrait = 0, Landscape = 1, Default = 2 };

/// @return the option that shows a stored orientation
OrientationOption OptionOf(std::int32_t orientation);

/// What the operator has chosen.
struct PrinterChoice
{
    /// Empty where no printer is selected.
    QString DeviceName;
    /// Empty where no kind is selected.
    QString KindTag;
    OrientationOption Orientation = OrientationOption::Default;
    int Copies = 1;
    /// Bring the document to the size of its printer's page, by the kind it had before.
    bool ForceResize = false;
};

/// Makes the chosen printer current and writes the choice into the open layout's page, in memory
/// and in the store. What fails is passed over: a printer that is gone is stored all the same,
/// without a kind the kind stays.
void SavePrinterChoice(Session& session, const PrinterChoice& choice);

} // namespace vantrel
