#pragma once

#include "drawing/PageCanvas.h"
#include "printers/Printer.h"
#include "printers/PrinterSetup.h"
#include <QByteArray>

namespace vantrel {

/// Base class of all printers of the station: a job is one page, drawn as a PDF in memory and then
/// delivered as a whole. A failed job is dropped, and the next one starts on a new page.
class PagePrinter : public Printer
{
public:
    void SetJobTitle(const QString& title) override { m_jobTitle = title; }
    void SetOrientation(int orientation) override;
    int Orientation() const override { return m_orientation; }
    double Width() const override;
    double Height() const override;

    QString Fonts(int index) const override { return PageCanvas::FontFamily(index); }
    void SetFontName(const QString& name) override { m_font.Name = name; }
    void SetFontSize(double points) override;
    void SetFontBold(bool on) override { m_font.Bold = on; }
    void SetFontItalic(bool on) override { m_font.Italic = on; }
    void SetFontUnderline(bool on) override { m_font.Underline = on; }
    void SetFontStrikethrough(bool on) override { m_font.Strikethrough = on; }
    void SetForeColor(ColorValue color) override { m_color = color; }
    void SetCurrentX(double x) override { m_currentX = x; }
    void SetCurrentY(float y) override { m_currentY = static_cast<double>(y); }
    double TextWidth(const QString& text) override { return PageCanvas::TextWidth(text, m_font); }

    void Print(const QString& text) override;
    void PaintPicture(const Picture& picture, double x, double y, double width,
                      double height) override;
    void PaintFitted(const Picture& picture, PictureFit fit, double x, double y, double width,
                     double height) override;
    void FillBoxes(const std::vector<FilledBox>& boxes) override;
    /// The administrator's setup of the printer goes before what the device tells.
    int DotsPerInch() override;
    void EndDoc() override;
    void EndDocAndTell(const JobEnd& told) override;

    /// From now on each page uses this printer's setup in the given settings file.
    void FollowSetup(const QString& settingsPath);

protected:
    /// Sides of the printer's page in twips.
    struct PageSides
    {
        double Short = 3060;
        double Long = 4860;
    };

    /// The present page size of the printer; by default a CR80 card.
    virtual PageSides Sides() const { return {}; }
    /// What the device tells of its dots to the inch; 0 by default.
    virtual int DeviceDotsPerInch() const { return 0; }
    /// Begins a page of this size in twips; by default a PDF of its own, which is then delivered.
    virtual std::unique_ptr<PageCanvas> NewPage(double width, double height);
    /// Delivers a finished job, the PDF of which is empty if `NewPage` made another page, and
    /// returns its number or file. Fails with `PrinterError`, and must then leave nothing of the
    /// job among finished cards.
    virtual JobOutcome Deliver(const QByteArray& pdf) = 0;
    /// Takes a finished job over that is to be delivered and told later. By default takes none.
    /// @return whether it was taken; if not, it is delivered at once
    virtual bool DeliverLater(const QByteArray& /*pdf*/, const JobEnd& /*told*/) { return false; }
    /// Forgets what belongs to one job only; called after each job, even one that failed.
    virtual void ForgetJob() {}

    const QString& JobTitle() const { return m_jobTitle; }
    /// The setup for the open page, or else for the next one. Never fails.
    const PrinterSetup& Setup();
    /// The open page; starts one if none is open.
    PageCanvas& OpenPage();

private:
    void ClosePage();
    /// Empties the buffer for the next page, or takes another one where this one is still read.
    void ReuseBuffer(bool isKept);
    /// Finishes the open page and passes its PDF on. All of the job is forgotten then.
    /// @param deliver  returns whether the PDF is read after it has returned
    void EndPage(const std::function<bool(const QByteArray&)>& deliver);

    QString m_jobTitle;
    PrinterSetupFile m_setupFile;
    PrinterSetup m_setup;
    int m_orientation = OrientationPortrait;
    Font m_font;
    ColorValue m_color = ColorBlack;
    double m_currentX = 0;
    double m_currentY = 0;
    QByteArray m_pdf;
    /// Writes into `m_pdf`, so it must be destroyed first.
    std::unique_ptr<PageCanvas> m_page;
};

} // namespace vantrel
