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
/// The page as pixels on white, one pixel to the point times `pixelsPerPoint`.
QImage ImageOfPdf(const QString& path, int pixelsPerPoint = 4);
/// The page as the dots of a printer, so many to the inch.
QImage DotsOfPdf(const QString& path, int dotsPerInch);

} // namespace vantrel::test
