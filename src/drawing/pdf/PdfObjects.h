#pragma once

#include <QByteArray>
#include <vector>

namespace vantrel {

struct PictureData;
class PdfContent;
class PdfFace;
class PdfFile;

/// The objects that a page of a document refers to. Lengths are points.
struct PdfPageParts
{
    /// The node of the page tree above the page.
    int Parent = 0;
    double Width = 0;
    double Height = 0;
    /// The stream of drawing operators, and what it names F1, I1 and X1 and so on.
    int Operators = 0;
    std::vector<int> Faces = {};
    std::vector<int> Pictures = {};
    std::vector<int> Forms = {};
};

/// The body of a page object.
QByteArray PdfPageBody(const PdfPageParts& parts);
/// Adds a picture: a JPEG unchanged, others in compressed form. @return its object number
int AddPicture(PdfFile& file, const PictureData& picture);
/// Adds all parts of a face's subset but the font itself. @return the body of the font object
QByteArray AddFaceParts(PdfFile& file, const PdfFace& face);

/// Adds the only page of a document with its fonts and pictures.
/// @param width,height  in points
/// @return the number of the document catalog
int AddOnlyPage(PdfFile& file, const PdfContent& content, double width, double height);

/// Adds the document catalog. @param pages  the root of the page tree. @return its object number
int AddCatalog(PdfFile& file, int pages);
/// Adds the document information: the creating program and the date. @return its object number
int AddInformation(PdfFile& file);

} // namespace vantrel
