#include "support/RecordingPrinter.h"
#include "base/Convert.h"
#include "base/Failure.h"

namespace vantrel::test {

namespace {
QString Quoted(const QString& text)
{
    return QStringLiteral("\"%1\"").arg(text);
}

QString Flag(const char* name, bool on)
{
    return QStringLiteral("%1 = %2").arg(QLatin1StringView(name), BooleanText(on));
}
} // namespace

void RecordingPrinter::Note(const QString& operation)
{
    for (const QString& beginning : std::as_const(Failing)) {
        if (operation.startsWith(beginning))
            throw Failure(FailureNumber::PrinterError, QStringLiteral("Printer error"));
    }
    m_operations.append(operation);
}

void RecordingPrinter::SetJobTitle(const QString& title)
{
    Note(QStringLiteral("JobTitle = ") + Quoted(title));
}

void RecordingPrinter::SetOrientation(int orientation)
{
    Note(QStringLiteral("Orientation = %1").arg(orientation));
    m_orientation = orientation;
}

QString RecordingPrinter::Fonts(int index) const
{
    return QStringLiteral("Font%1").arg(index);
}

void RecordingPrinter::SetFontName(const QString& name)
{
    Note(QStringLiteral("FontName = ") + Quoted(name));
}

void RecordingPrinter::SetFontSize(double points)
{
    Note(QStringLiteral("FontSize = ") + NumberText(points));
}

void RecordingPrinter::SetFontBold(bool on)
{
    Note(Flag("FontBold", on));
}

void RecordingPrinter::SetFontItalic(bool on)
{
    Note(Flag("FontItalic", on));
}

void RecordingPrinter::SetFontUnderline(bool on)
{
    Note(Flag("FontUnderline", on));
}

void RecordingPrinter::SetFontStrikethrough(bool on)
{
    Note(Flag("FontStrikethrough", on));
}

void RecordingPrinter::SetForeColor(ColorValue color)
{
    Note(QStringLiteral("ForeColor = %1").arg(color));
}

void RecordingPrinter::SetCurrentX(double x)
{
    Note(QStringLiteral("CurrentX = ") + NumberText(x));
}

void RecordingPrinter::SetCurrentY(float y)
{
    Note(QStringLiteral("CurrentY = ") + NumberText(static_cast<double>(y)));
}

double RecordingPrinter::TextWidth(const QString& text)
{
    return 100.0 * static_cast<double>(text.size());
}

void RecordingPrinter::Print(const QString& text)
{
    Note(QStringLiteral("Print(%1)").arg(Quoted(text)));
}

void RecordingPrinter::PaintPicture(const Picture& picture, double x, double y, double width,
                                    double height)
{
    if (!picture.HasHandle())
        throw Failure(FailureNumber::InvalidPicture, QStringLiteral("Invalid picture"));
    Note(QStringLiteral("PaintPicture(%1 x %2 pixels, %3, %4, %5, %6)")
             .arg(picture.Image().width())
             .arg(picture.Image().height())
             .arg(NumberText(x), NumberText(y), NumberText(width), NumberText(height)));
}

void RecordingPrinter::PaintFitted(const Picture& picture, PictureFit fit, double x, double y,
                                   double width, double height)
{
    constexpr const char* Words[] = {"stretched", "whole", "filled"};
    if (!picture.HasHandle())
        throw Failure(FailureNumber::InvalidPicture, QStringLiteral("Invalid picture"));
    Note(QStringLiteral("PaintFitted(%1 x %2 pixels, %3, %4, %5, %6, %7)")
             .arg(picture.SizeInPixels().width())
             .arg(picture.SizeInPixels().height())
             .arg(QLatin1StringView(Words[static_cast<int>(fit)]), NumberText(x), NumberText(y),
                  NumberText(width), NumberText(height)));
}

void RecordingPrinter::FillBoxes(const std::vector<FilledBox>& boxes)
{
    Note(QStringLiteral("FillBoxes(%1)").arg(boxes.size()));
    LastBoxes = boxes;
}

void RecordingPrinter::SendStripe(int trackNumber, const QString& line)
{
    Note(QStringLiteral("Stripe(%1, %2)").arg(QString::number(trackNumber), Quoted(line)));
}

void RecordingPrinter::EndDoc()
{
    Note(QStringLiteral("EndDoc"));
}

void RecordingPrinter::EndDocAndTell(const JobEnd& told)
{
    JobOutcome outcome;
    outcome.HandedOver = true;
    if (!Outcomes.isEmpty())
        outcome = Outcomes.takeFirst();
    try {
        EndDoc();
    } catch (const Failure& failure) {
        outcome = {};
        outcome.Reason = ReasonOf(failure);
    }
    m_untold.emplace_back(told, outcome);
    if (!TellsLater)
        TellOutcomes();
}

void RecordingPrinter::TellOutcomes()
{
    while (!m_untold.empty()) {
        const auto [told, outcome] = std::move(m_untold.front());
        m_untold.pop_front();
        told(outcome);
    }
}

RecordingPrinters::RecordingPrinters(const QStringList& names)
{
    Install(names);
}

void RecordingPrinters::Install(const QStringList& names)
{
    m_names = names;
    m_printers.clear();
    m_current.clear();
    for (const QString& name : names)
        m_printers.emplace(name, std::make_unique<RecordingPrinter>(name, Operations));
    if (!names.isEmpty())
        m_current = names.constFirst();
}

void RecordingPrinters::MakeCurrent(const QString& deviceName)
{
    if (!m_printers.contains(deviceName))
        throw Failure(FailureNumber::PrinterError, QStringLiteral("No such printer"));
    Operations.append(QStringLiteral("Printer = ") + Quoted(deviceName));
    m_current = deviceName;
}

Printer& RecordingPrinters::Current()
{
    const auto found = m_printers.find(m_current);
    if (found == m_printers.end())
        throw Failure(FailureNumber::PrinterError, QStringLiteral("No printer"));
    return *found->second;
}

SpoolState RecordingPrinters::SpoolStateOf(const QString& deviceName)
{
    const auto found = Spool.find(deviceName);
    return found == Spool.end() ? SpoolState() : found->second;
}

void RecordingPrinters::FinishJobs()
{
    for (const auto& [name, printer] : m_printers)
        printer->TellOutcomes();
}

QStringList RecordingPrinters::Only(const QStringList& beginnings) const
{
    QStringList kept;
    for (const QString& operation : Operations) {
        for (const QString& beginning : beginnings) {
            if (operation.startsWith(beginning)) {
                kept.append(operation);
                break;
            }
        }
    }
    return kept;
}

} // namespace vantrel::test
