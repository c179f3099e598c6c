#pragma once

namespace vantrel {

class PdfContent;
class PdfFile;

/// Adds the only page of a document with its fonts and pictures. A JPEG is embedded unchanged,
/// other pictures in compressed form.
/// @param width,height  in points
/// @return the number of the document catalog
int AddOnlyPage(PdfFile& file, const PdfContent& content, double width, double height);

/// Adds the document information: the creating program and the date. @return its object number
int AddInformation(PdfFile& file);

} // namespace vantrel
