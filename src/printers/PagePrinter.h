#pragma once

#include "drawing/PageCanvas.h"
#include "printers/Printer.h"
#include "printers/PrinterSetup.h"
#include <QByteArray>

namespace vantrel {

/// What all printers of the station share: a job is one page, drawn as a PDF in memory and handed
/// over whole. A job that fails is dropped; the next one starts on a fresh page.
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
    void EndDoc() override;

    /// From now on each page follows what is set up for this printer in a settings file.
    void FollowSetup(const QString& settingsPath);

protected:
    /// Sides of the printer's page in twips.
    struct PageSides
    {
        double Short = 3060;
        double Long = 4860;
    };

    /// The page as the printer has it at the moment; a CR80 card where a maker knows none.
    virtual PageSides Sides() const { return {}; }
    /// Takes a finished job. Fails with `PrinterError`; nothing of the job may then be left where
    /// finished cards are found.
    virtual void Deliver(const QByteArray& pdf) = 0;

    const QString& JobTitle() const { return m_jobTitle; }
    /// What is set up for the open page, or for the next one. Never fails.
    const PrinterSetup& Setup();
    PageCanvas& OpenPage();

private:
    void ClosePage();

    QString m_jobTitle;
    PrinterSetupFile m_setupFile;
    PrinterSetup m_setup;
    int m_orientation = OrientationPortrait;
    Font m_font;
    ColorValue m_color = ColorBlack;
    double m_currentX = 0;
    double m_currentY = 0;
    QByteArray m_pdf;
    /// Writes into `m_pdf`, so it goes first.
    std::unique_ptr<PageCanvas> m_page;
};

} // namespace vantrel
