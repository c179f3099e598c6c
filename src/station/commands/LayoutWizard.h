#pragma once

#include "base/Font.h"
#include "printers/Printer.h"
#include <QString>
#include <array>
#include <optional>
#include <vector>

namespace vantrel {

class Connection;
class Session;

/// @file The pages of the card design wizard and the layout it builds from the answers.

/// The pages in order. After the last one the layout is built.
enum class WizardStep : std::uint8_t {
    Name = 1,
    DefaultFont = 2,
    Orientation = 3,
    Printer = 4,
    DataFields = 5,
    Summary = 6,
    Build = 7
};

/// A page of the wizard with its texts.
struct WizardPage
{
    WizardStep Step;
    const char* Prompt;
};

inline constexpr std::array<WizardPage, 6> WizardPages = {{
    {WizardStep::Name, "Please enter a name for the new document layout."},
    {WizardStep::DefaultFont, "Please select a default font to use for text on the document."},
    {WizardStep::Orientation, "Please select the orientation for the new document."},
    {WizardStep::Printer, "Please select the default printer to print you document with"},
    {WizardStep::DataFields, "Please choose your data field options."},
    {WizardStep::Summary, "Click \"Finish\" to create your new card layout."},
}};

/// The operator's answers so far.
struct WizardAnswers
{
    QString LayoutName;
    /// Not set before its sample was shown.
    std::optional<Font> DefaultFont;
    /// 1 portrait, 2 landscape, 0 not yet chosen.
    int Orientation = 0;
    QString PrinterName;
    /// `DeviceType` of the chosen printer type.
    std::int32_t PrinterKind = 0;
    QString PrinterKindName;
    std::int16_t FieldCount = 0;
    /// The next record creates the fields, so none are drawn.
    bool DynamicFields = false;
};

/// Whether a page has its answer; nothing if the page asks for none, so that the buttons stay as
/// they are. `name` is the name as typed so far.
std::optional<bool> IsPageComplete(WizardStep step, const QString& name,
                                   const WizardAnswers& answers);

/// A line of the last page.
struct SummaryLine
{
    const char* Caption;
    QString Value;
};
/// The lines of the last page.
std::vector<SummaryLine> SummaryOf(const WizardAnswers& answers);

/// A printer type of the database.
struct WizardPrinterKind
{
    QString Name;
    QString DeviceType;
};

/// Names of the machine's printers, at most 100. Never fails.
QStringList WizardPrinters(Printers& printers);
/// The printer types in the order of the database, at most 99. If reading fails, the types read so
/// far. Never fails.
std::vector<WizardPrinterKind> WizardPrinterKinds(Connection& layoutDb);

/// Replaces the open document by the new layout, asks the operator to send data and stores the
/// layout's parameters. The objects are stored only by a later save. A failing step is skipped.
void BuildWizardLayout(Session& session, const WizardAnswers& answers);

} // namespace vantrel
