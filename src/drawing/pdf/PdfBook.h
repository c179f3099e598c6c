#pragma once

#include "drawing/PageCanvas.h"
#include <memory>

namespace vantrel {

/// A PDF of many pages that is written as it goes: each page when it is finished, the fonts at the
/// end. Each font stands in the file once, cut to the glyphs of all pages, and a picture once for
/// all pages that show it. Of the pictures and pages written only a few bytes are kept: twenty-four
/// for each page and its photo, and the keys of the last thousand different pictures; one that
/// comes again after a thousand others is written again.
///
/// A line in a font that is no plain TrueType, or with a character that no font has, is drawn by
/// cairo as a form, which is shared by all pages while the line is among the last 256 such lines.
class PdfBook
{
public:
    /// @param sink  takes all bytes in order. If it throws or returns false, the book cannot go on:
    /// each page and `Finish` fail from then on
    explicit PdfBook(PageCanvas::Sink sink);
    PdfBook(const PdfBook&) = delete;
    PdfBook& operator=(const PdfBook&) = delete;
    ~PdfBook();

    /// Begins a page of the given size in twips. It becomes the next page of the book when it is
    /// finished, and leaves no trace if it is destroyed before. A page that fails with
    /// `PrinterError` is not in the book, which can go on unless the sink failed. The book must
    /// outlive the page.
    std::unique_ptr<PageCanvas> NewPage(double width, double height);
    /// Number of pages finished.
    int PageCount() const;
    /// Writes the fonts and the end of the file; no page can follow. Fails with `PrinterError` if
    /// there is no page, or if the sink refused any bytes.
    void Finish();

private:
    class Page;
    class Writer;
    std::unique_ptr<Writer> m_writer;
};

} // namespace vantrel
