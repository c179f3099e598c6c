#include "printers/PagePrinter.h"
#include "base/Failure.h"
#include "base/Twips.h"
#include "drawing/CodeLayout.h"
#include <QScopeGuard>
#include <cmath>

namespace vantrel {

namespace {
constexpr double LargestFontSize = 2160.0;

/// A length in twips as the nearest number of whole dots, also in twips.
double InWholeDots(double twips, int dotsPerInch)
{
    const double dot = TwipsPerInch / (dotsPerInch > 0 ? dotsPerInch : CardDotsPerInch);
    return std::round(twips / dot) * dot;
}
} // namespace

void PagePrinter::SetOrientation(int orientation)
{
    if (orientation != OrientationPortrait && orientation != OrientationLandscape)
        throw Failure(FailureNumber::PrinterError, QStringLiteral("Printer error: no orientation"));
    m_orientation = orientation;
}

double PagePrinter::Width() const
{
    const PageSides sides = Sides();
    return m_orientation == OrientationLandscape ? sides.Long : sides.Short;
}

double PagePrinter::Height() const
{
    const PageSides sides = Sides();
    return m_orientation == OrientationLandscape ? sides.Short : sides.Long;
}

void PagePrinter::SetFontSize(double points)
{
    if (!(points > 0 && points <= LargestFontSize))
        throw Failure(FailureNumber::PrinterError, QStringLiteral("Printer error: no font size"));
    m_font.Size = points;
}

void PagePrinter::FollowSetup(const QString& settingsPath)
{
    m_setupFile = PrinterSetupFile(settingsPath, DeviceName());
}

const PrinterSetup& PagePrinter::Setup()
{
    // A change of the setup does not affect an open page.
    if (!m_page)
        m_setup = m_setupFile.Current();
    return m_setup;
}

PageCanvas& PagePrinter::OpenPage()
{
    if (!m_page) {
        Setup();
        m_page = NewPage(Width(), Height());
    }
    return *m_page;
}

std::unique_ptr<PageCanvas> PagePrinter::NewPage(double width, double height)
{
    return PageCanvas::OnPdf(width, height, [this](const char* bytes, std::size_t count) {
        m_pdf.append(bytes, static_cast<qsizetype>(count));
        return true;
    });
}

void PagePrinter::ClosePage()
{
    m_page.reset();
    m_currentX = 0;
    m_currentY = 0;
}

void PagePrinter::Print(const QString& text)
{
    PageCanvas& page = OpenPage();
    page.DrawText(text, m_font, m_color, m_currentX + m_setup.OffsetX,
                  m_currentY + m_setup.OffsetY);
    m_currentX = 0;
    m_currentY += PageCanvas::TextHeight(text, m_font);
}

void PagePrinter::PaintPicture(const Picture& picture, double x, double y, double width,
                               double height)
{
    PageCanvas& page = OpenPage();
    page.PaintPicture(picture, x + m_setup.OffsetX, y + m_setup.OffsetY, width, height);
}

void PagePrinter::PaintFitted(const Picture& picture, PictureFit fit, double x, double y,
                              double width, double height)
{
    PageCanvas& page = OpenPage();
    page.PaintFitted(picture, fit, x + m_setup.OffsetX, y + m_setup.OffsetY, width, height);
}

void PagePrinter::FillBoxes(const std::vector<FilledBox>& boxes)
{
    PageCanvas& page = OpenPage();
    // Boxes on whole dots stay there.
    const int dots = DotsPerInch();
    const double right = InWholeDots(m_setup.OffsetX, dots);
    const double down = InWholeDots(m_setup.OffsetY, dots);
    std::vector<FilledBox> shifted = boxes;
    for (FilledBox& box : shifted) {
        box.X += right;
        box.Y += down;
    }
    page.FillBoxes(shifted, m_color);
}

int PagePrinter::DotsPerInch()
{
    const int dots = Setup().DotsPerInch;
    return dots > 0 ? dots : DeviceDotsPerInch();
}

void PagePrinter::ReuseBuffer(bool isKept)
{
    if (!isKept && m_pdf.isDetached()) {
        m_pdf.resize(0);
    } else {
        const qsizetype size = m_pdf.size();
        m_pdf = QByteArray();
        m_pdf.reserve(size);
    }
}

void PagePrinter::EndPage(const std::function<bool(const QByteArray&)>& deliver)
{
    bool isKept = false;
    const auto forget = qScopeGuard([&] {
        ReuseBuffer(isKept);
        ForgetJob();
    });
    {
        const auto closePage = qScopeGuard([this] { ClosePage(); });
        m_page->Finish();
    }
    isKept = deliver(m_pdf);
}

void PagePrinter::EndDoc()
{
    if (m_page)
        EndPage([this](const QByteArray& pdf) {
            Deliver(pdf);
            return false;
        });
}

void PagePrinter::EndDocAndTell(const JobEnd& told)
{
    JobOutcome outcome;
    bool later = false;
    if (!m_page) {
        outcome.Reason = QString::fromLatin1(NothingDrawn);
    } else {
        try {
            EndPage([&](const QByteArray& pdf) {
                later = DeliverLater(pdf, told);
                if (!later)
                    outcome = Deliver(pdf);
                return later;
            });
            outcome.HandedOver = true;
        } catch (const Failure& failure) {
            outcome.Reason = ReasonOf(failure);
        }
    }
    // The printer is ready for the next page by now, which may well be drawn by `told`.
    if (!later)
        told(outcome);
}

} // namespace vantrel
