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

/// @file What the card design wizard asks for, page by page, and the layout it makes of the
/// answers.

/// The pages, by their step. Behind the last one the layout is built.
enum class WizardStep : std::uint8_t {
    Name = 1,
    DefaultFont = 2,
    Orientation = 3,
    Printer = 4,
    DataFields = 5,
    Summary = 6,
    Build = 7
};

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

/// What the operator has answered so far.
struct WizardAnswers
{
    QString LayoutName;
    /// None until a sample of it was shown.
    std::optional<Font> DefaultFont;
    /// 1 portrait, 2 landscape, 0 none chosen yet.
    int Orientation = 0;
    QString PrinterName;
    /// `DeviceType` of the printer's kind.
    std::int32_t PrinterKind = 0;
    QString PrinterKindName;
    std::int16_t FieldCount = 0;
    /// A record makes the fields; none is drawn.
    bool DynamicFields = false;
};

/// Whether a page has its answer; none where the page does not ask for one, and what could be
/// chosen before stays as it was. `name` is the name as typed so far.
std::optional<bool> IsPageComplete(WizardStep step, const QString& name,
                                   const WizardAnswers& answers);

/// A line of the last page.
struct SummaryLine
{
    const char* Caption;
    QString Value;
};
std::vector<SummaryLine> SummaryOf(const WizardAnswers& answers);

/// A kind of printer as the store has it.
struct WizardPrinterKind
{
    QString Name;
    QString DeviceType;
};

/// At most the first 100 of the machine's printers.
QStringList WizardPrinters(Printers& printers);
/// At most the first 99 kinds, in the order of the store. A failing read gives those read so far.
std::vector<WizardPrinterKind> WizardPrinterKinds(Connection& layoutDb);

/// Replaces the open document by the new layout, tells the operator to send data, and writes the
/// layout's parameters; the objects are kept by a save only. What fails is passed over.
void BuildWizardLayout(Session& session, const WizardAnswers& answers);

} // namespace vantrel
