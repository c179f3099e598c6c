#pragma once

#include "drawing/pdf/PdfBook.h"
#include "printers/BookFile.h"
#include "printers/PagePrinter.h"
#include "printers/PdfPrinter.h"
#include <vector>

namespace vantrel {

/// A printer whose jobs become the pages of one PDF, in their order. The file gets its name with
/// `Close` only; before that nothing stands under it. A job that fails is no page of the file, and
/// the next one goes on, except after a failure to write the file (such as a full disk): then all
/// further jobs and `Close` fail with the same reason, and `IsBroken` tells so.
class BookPrinter : public PagePrinter
{
public:
    /// When the outcome of a job is told: when its page is in the unfinished file, or when the file
    /// is whole and on the disk. A job that fails is told at once.
    enum class Telling { WithEachPage, AtClose };

    /// @param path  of the file. Fails with `PrinterError` if it exists or cannot be made
    explicit BookPrinter(QString path, Telling telling = Telling::WithEachPage);
    /// Without `Close` no file is left; jobs to be told at close are told as failed, and what is
    /// told must not use the printer.
    ~BookPrinter() override;

    QString DeviceName() const override { return QString::fromLatin1(PdfDeviceName); }
    /// Sets the size of the next pages in twips, of the upright page; at first that of a card. The
    /// orientation turns it.
    void SetPageSides(double shortSide, double longSide);

    /// Number of pages in the file.
    int PageCount() const { return m_book.PageCount(); }
    /// Whether the file could not be written and no further page can be added.
    bool IsBroken() const { return m_file.IsBroken(); }
    /// Ends the file, forces it to the disk and gives it its name. Fails with `PrinterError` and a
    /// plain reason, then no file is left. If the name was taken meanwhile, it can be called again
    /// with another path in the same folder.
    /// @param path  another name than that of the constructor, if not empty
    void Close(const QString& path = {});

protected:
    PageSides Sides() const override { return m_sides; }
    std::unique_ptr<PageCanvas> NewPage(double width, double height) override;
    JobOutcome Deliver(const QByteArray& pdf) override;
    bool DeliverLater(const QByteArray& pdf, const JobEnd& told) override;

private:
    void TellAll(const JobOutcome& outcome);

    QString m_path;
    Telling m_telling;
    PageSides m_sides;
    BookFile m_file;
    PdfBook m_book;
    bool m_isFinished = false;
    bool m_isClosed = false;
    std::vector<JobEnd> m_untold;
};

} // namespace vantrel
