#include "drawing/pdf/PdfObjects.h"
#include "drawing/PictureData.h"
#include "drawing/pdf/PdfContent.h"
#include "drawing/pdf/PdfFile.h"
#include "drawing/pdf/PdfSyntax.h"
#include <QDateTime>

namespace vantrel {

namespace {

constexpr char Packed[] = "/Filter/FlateDecode";

QByteArray Descriptor(const PdfFace& face, int program)
{
    const PdfFace::Measures& sizes = face.Sizes();
    // Flag 4 marks a symbolic font, since glyphs are addressed by number. The stem width is not
    // known, so a usual value is written.
    QByteArray text =
        "<</Type/FontDescriptor/FontName/" + face.Packed().Name + "/Flags 4/FontBBox[";
    AppendNumbers(text, sizes.Box[0], sizes.Box[1], sizes.Box[2], sizes.Box[3]);
    text += "]/ItalicAngle ";
    AppendNumber(text, sizes.SlantAngle);
    text += "/Ascent ";
    AppendNumber(text, sizes.Ascent);
    text += "/Descent ";
    AppendNumber(text, sizes.Descent);
    text += "/CapHeight ";
    AppendNumber(text, sizes.Box[3]);
    return text + "/StemV 80/FontFile2 " + PdfReference(program) + ">>";
}

QByteArray ImageEntries(const QSize& size, QByteArrayView space, QByteArrayView filter)
{
    return "/Type/XObject/Subtype/Image/Width " + QByteArray::number(size.width()) + "/Height " +
           QByteArray::number(size.height()) + "/ColorSpace/" + space.toByteArray() +
           "/BitsPerComponent 8/Interpolate true" + filter.toByteArray();
}

/// Appends names of one kind, numbered from 1, with their objects.
void AppendNames(QByteArray& out, char kind, const std::vector<int>& objects)
{
    for (std::size_t i = 0; i < objects.size(); ++i)
        out += '/' + (kind + QByteArray::number(i + 1)) + ' ' + PdfReference(objects[i]);
}

} // namespace

QByteArray AddFaceParts(PdfFile& file, const PdfFace& face)
{
    const PackedFace& packed = face.Packed();
    const int program = file.AddStream(
        Packed + ("/Length1 " + QByteArray::number(packed.ProgramLength)), packed.Program);
    const int toUnicode = file.AddStream(Packed, packed.ToUnicode);
    const int descriptor = file.Add(Descriptor(face, program));
    const int descendant =
        file.Add("<</Type/Font/Subtype/CIDFontType2/BaseFont/" + packed.Name +
                 "/CIDSystemInfo<</Registry(Adobe)/Ordering(Identity)/Supplement 0>>"
                 "/CIDToGIDMap/Identity/FontDescriptor " +
                 PdfReference(descriptor) + "/W" + packed.Widths + ">>");
    return "<</Type/Font/Subtype/Type0/BaseFont/" + packed.Name +
           "/Encoding/Identity-H/DescendantFonts[" + PdfReference(descendant) + "]/ToUnicode " +
           PdfReference(toUnicode) + ">>";
}

int AddPicture(PdfFile& file, const PictureData& picture)
{
    const QSize size = picture.StoredSize();
    if (!picture.Jpeg.Bytes.isEmpty()) {
        const char* space = picture.Jpeg.IsGrey ? "DeviceGray" : "DeviceRGB";
        return file.AddStream(ImageEntries(size, space, "/Filter/DCTDecode"), picture.Jpeg.Bytes);
    }
    const PackedPixels& pixels = picture.Packed();
    QByteArray entries = ImageEntries(size, "DeviceRGB", Packed);
    if (!pixels.Opacity.isEmpty())
        entries += "/SMask " + PdfReference(file.AddStream(ImageEntries(size, "DeviceGray", Packed),
                                                           pixels.Opacity));
    return file.AddStream(entries, pixels.Colors);
}

QByteArray PdfPageBody(const PdfPageParts& parts)
{
    QByteArray page = "<</Type/Page/Parent " + PdfReference(parts.Parent) + "/MediaBox[0 0 ";
    AppendNumbers(page, parts.Width, parts.Height);
    page += "]/Contents " + PdfReference(parts.Operators) +
            "/Group<</S/Transparency/CS/DeviceRGB/I true>>/Resources<</XObject<<";
    AppendNames(page, 'I', parts.Pictures);
    AppendNames(page, 'X', parts.Forms);
    page += ">>/Font<<";
    AppendNames(page, 'F', parts.Faces);
    return page + ">>>>>>";
}

int AddOnlyPage(PdfFile& file, const PdfContent& content, double width, double height)
{
    PdfPageParts parts{.Width = width, .Height = height};
    parts.Operators = file.AddStream({}, content.Operators());
    for (const Picture& picture : content.Pictures())
        parts.Pictures.push_back(AddPicture(file, *picture.Data()));
    for (const auto& face : content.Faces())
        parts.Faces.push_back(file.Add(AddFaceParts(file, *face)));
    parts.Parent = file.Reserve();
    file.Write(parts.Parent,
               "<</Type/Pages/Count 1/Kids[" + PdfReference(file.Add(PdfPageBody(parts))) + "]>>");
    return AddCatalog(file, parts.Parent);
}

int AddCatalog(PdfFile& file, int pages)
{
    return file.Add("<</Type/Catalog/Pages " + PdfReference(pages) + ">>");
}

int AddInformation(PdfFile& file)
{
    return file.Add("<</Producer(Vantrel " VANTREL_VERSION ")/CreationDate(D:" +
                    QDateTime::currentDateTimeUtc().toString(u"yyyyMMddhhmmss").toLatin1() +
                    "Z)>>");
}

} // namespace vantrel
