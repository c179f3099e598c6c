#pragma once

#include <QImage>
#include <QString>
#include <QStringList>
#include <vector>

namespace vantrel::test {

/// @file Reads cards back with poppler's tools, which know nothing of the station.

/// A word on a page; lengths in points from the top left corner.
struct PdfWord
{
    QString Text;
    double XMin = 0;
    double YMin = 0;
    double XMax = 0;
    double YMax = 0;
};

/// Runs a tool and fails the test where the tool fails. @return what it printed
QString OutputOf(const QString& tool, const QStringList& arguments);

std::vector<PdfWord> WordsOfPdf(const QString& path);
/// @return the first word of exactly that text; fails the test where there is none
PdfWord WordOfPdf(const QString& path, const QString& text);
/// Size of the page in points as `pdfinfo` reports it, such as "153 x 243", and the number of
/// pages.
QString PageSizeOfPdf(const QString& path);
int PagesOfPdf(const QString& path);
/// The texts of all pages, with line ends and blanks as blanks.
QStringList TextsOfPages(const QString& path);
/// The pages' sizes in points, as `PageSizeOfPdf` gives that of the first.
QStringList SizesOfPages(const QString& path);
/// Fails the test if one of the independent readers (qpdf, MuPDF, Ghostscript, poppler) has
/// anything to complain about.
void ExpectValidPdf(const QString& path);
/// The object numbers of the pictures on all pages, in their order; several times if several pages
/// show the same.
QStringList PictureObjectsOfPdf(const QString& path);
/// The page as pixels on white, one pixel to the point times `pixelsPerPoint`.
QImage ImageOfPdf(const QString& path, int pixelsPerPoint = 4, int page = 1);
/// The page as the dots of a printer, so many to the inch.
QImage DotsOfPdf(const QString& path, int dotsPerInch, int page = 1);

} // namespace vantrel::test
