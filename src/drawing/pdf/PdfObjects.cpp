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

/// @return the number of the font object
int AddFace(PdfFile& file, const PdfFace& face)
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
    return file.Add("<</Type/Font/Subtype/Type0/BaseFont/" + packed.Name +
                    "/Encoding/Identity-H/DescendantFonts[" + PdfReference(descendant) +
                    "]/ToUnicode " + PdfReference(toUnicode) + ">>");
}

/// @return the number of the image object
int AddPicture(PdfFile& file, const PictureData& picture)
{
    const QSize size = picture.Stored.size();
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

/// A dictionary that maps names of one kind, numbered from 1, to their objects.
QByteArray Names(char kind, const std::vector<int>& objects)
{
    QByteArray names("<<");
    for (std::size_t i = 0; i < objects.size(); ++i)
        names += '/' + (kind + QByteArray::number(i + 1)) + ' ' + PdfReference(objects[i]);
    return names + ">>";
}

} // namespace

int AddOnlyPage(PdfFile& file, const PdfContent& content, double width, double height)
{
    const int operators = file.AddStream({}, content.Operators());
    std::vector<int> pictures;
    for (const Picture& picture : content.Pictures())
        pictures.push_back(AddPicture(file, *picture.Data()));
    std::vector<int> faces;
    for (const auto& face : content.Faces())
        faces.push_back(AddFace(file, *face));
    const int pages = file.Reserve();
    QByteArray page = "<</Type/Page/Parent " + PdfReference(pages) + "/MediaBox[0 0 ";
    AppendNumbers(page, width, height);
    page += "]/Contents " + PdfReference(operators) +
            "/Group<</S/Transparency/CS/DeviceRGB/I true>>/Resources<</XObject" +
            Names('I', pictures) + "/Font" + Names('F', faces) + ">>>>";
    file.Write(pages, "<</Type/Pages/Count 1/Kids[" + PdfReference(file.Add(page)) + "]>>");
    return file.Add("<</Type/Catalog/Pages " + PdfReference(pages) + ">>");
}

int AddInformation(PdfFile& file)
{
    return file.Add("<</Producer(Vantrel " VANTREL_VERSION ")/CreationDate(D:" +
                    QDateTime::currentDateTimeUtc().toString(u"yyyyMMddhhmmss").toLatin1() +
                    "Z)>>");
}

} // namespace vantrel
