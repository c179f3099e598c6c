#pragma once

namespace vantrel {

class PdfContent;
class PdfFile;

/// Adds the one page of a document with the fonts and pictures it refers to. A JPEG goes in as its
/// file has it, all else as it was packed once.
/// @param width,height  in points
/// @return the object that a reader begins at
int AddOnlyPage(PdfFile& file, const PdfContent& content, double width, double height);

/// Adds what tells who made a document, and when. @return its object
int AddInformation(PdfFile& file);

} // namespace vantrel
