#include "station/layout/RowToObject.h"
#include "base/Convert.h"
#include "base/Skip.h"
#include "card/CardDocument.h"
#include "card/CheckDigits.h"
#include "station/layout/DrawObjects.h"
#include "store/StoredValue.h"
#include <utility>

namespace vantrel {

namespace {

/// The value of a column, or null if it cannot be read.
QVariant ValueOf(const ColumnReader& row, const QString& column)
{
    QVariant value;
    Skip("read column", [&] { value = row(column); });
    return value;
}

QString TextOf(const ColumnReader& row, const QString& column)
{
    return JoinedText(ValueOf(row, column));
}

/// Calls a step with the value of a column unless it is null.
template <typename Step>
void WithValue(const ColumnReader& row, const QString& column, Step&& step)
{
    const QVariant value = ValueOf(row, column);
    if (!value.isNull())
        Skip("apply column", [&] { step(value); });
}

ObjectBox BoxOf(const ColumnReader& row)
{
    return {StoredLong(ValueOf(row, QStringLiteral("C_Top"))),
            StoredLong(ValueOf(row, QStringLiteral("C_Left"))),
            StoredLong(ValueOf(row, QStringLiteral("C_Height"))),
            StoredLong(ValueOf(row, QStringLiteral("C_Width")))};
}

Font FontOf(const ColumnReader& row)
{
    Font font;
    WithValue(row, QStringLiteral("C_FontName"), [&](const auto& v) { font.Name = ToText(v); });
    WithValue(row, QStringLiteral("C_FontSize"), [&](const auto& v) { font.Size = ToDouble(v); });
    WithValue(row, QStringLiteral("C_FontBold"), [&](const auto& v) { font.Bold = ToBoolean(v); });
    WithValue(row, QStringLiteral("C_FontItalic"),
              [&](const auto& v) { font.Italic = ToBoolean(v); });
    WithValue(row, QStringLiteral("C_FontStrikethrough"),
              [&](const auto& v) { font.Strikethrough = ToBoolean(v); });
    WithValue(row, QStringLiteral("C_FontUnderline"),
              [&](const auto& v) { font.Underline = ToBoolean(v); });
    return font;
}

TextLooks LooksOf(const ColumnReader& row)
{
    TextLooks looks;
    looks.cFont = FontOf(row);
    WithValue(row, QStringLiteral("C_BackColor"),
              [&](const auto& v) { looks.cBackColor = ToLong(v); });
    WithValue(row, QStringLiteral("C_ForeColor"),
              [&](const auto& v) { looks.cForeColor = ToLong(v); });
    return looks;
}

void ApplyAlignment(const ColumnReader& row, CardObject& object)
{
    WithValue(row, QStringLiteral("C_Alignment"),
              [&](const auto& v) { object.Alignment = ToInteger(v); });
}

/// If several flags of a row are true, the last one applies.
void ApplyCheckDigit(const ColumnReader& row, CardObject& object)
{
    const auto apply = [&](const QString& column, QLatin1StringView word) {
        WithValue(row, column, [&](const auto& v) {
            if (ToBoolean(v))
                object.DataMember = word;
        });
    };
    apply(QStringLiteral("C_UseMod10"), WordMod10);
    apply(QStringLiteral("C_UseCodaBar"), WordCodabar);
    apply(QStringLiteral("C_UseEBT"), WordEbt);
}

void RowToDataField(CardDocument& document, const ColumnReader& row)
{
    std::int16_t fieldIndex = 0;
    WithValue(row, QStringLiteral("C_Param_3"), [&](const auto& v) { fieldIndex = ToInteger(v); });
    CardObject& object = Draw_DataField(document, fieldIndex, BoxOf(row), LooksOf(row));
    WithValue(row, QStringLiteral("C_Param_2"), [&](const auto& v) { object.Tag = ToText(v); });
    object.ToolTipText = TextOf(row, QStringLiteral("C_Prefix")) + QLatin1Char('\r') +
                         TextOf(row, QStringLiteral("C_Suffix"));
    ApplyAlignment(row, object);
    object.DataMember.clear();
    ApplyCheckDigit(row, object);
}

void RowToAutoNumber(CardDocument& document, const ColumnReader& row)
{
    double seed = 0;
    WithValue(row, QStringLiteral("C_Value"), [&](const auto& v) { seed = ToDouble(v); });
    CardObject& object = Draw_AutoNumber(document, seed, BoxOf(row), LooksOf(row));
    object.StoreKey = ValueOf(row, RowKeyColumn).toLongLong();
    ApplyAlignment(row, object);
    ApplyCheckDigit(row, object);
}

void RowToStaticText(CardDocument& document, const ColumnReader& row)
{
    TextLooks looks = LooksOf(row);
    looks.cCaption = TextOf(row, QStringLiteral("C_Value"));
    ApplyAlignment(row, Draw_Label(document, BoxOf(row), looks));
}

/// A row without a word of ours is stretched, and so is every row that another station has made.
PictureFit FitOf(const ColumnReader& row)
{
    const QString word = TextOf(row, QStringLiteral("C_Param_2"));
    if (word == Marker::PictureWhole)
        return PictureFit::Whole;
    return word == Marker::PictureFilled ? PictureFit::Filled : PictureFit::Stretched;
}

/// A file that cannot be read gives an empty image, which keeps the path.
void RowToImage(CardDocument& document, const ColumnReader& row)
{
    const QString path = TextOf(row, QStringLiteral("C_ImagePath"));
    Picture picture;
    Skip("load image", [&] { picture = LoadPicture(path); });
    Draw_Image(document, BoxOf(row), 1, picture, true, path).Fit = FitOf(row);
}

} // namespace

OwnFonts::OwnFonts(CardDocument& document)
    : m_document(document), m_defaultFont(std::exchange(document.DefaultFont, std::nullopt))
{}

OwnFonts::~OwnFonts()
{
    m_document.DefaultFont = m_defaultFont;
}

void RowToObject(CardDocument& document, const ColumnReader& row)
{
    const QString type = TextOf(row, QStringLiteral("Control_Type"));
    const QString kind = TextOf(row, QStringLiteral("C_Param_1"));
    if (type == Marker::LabelRow) {
        if (kind == Marker::DataFieldRow)
            RowToDataField(document, row);
        else if (kind == Marker::AutoNumber)
            RowToAutoNumber(document, row);
        else
            RowToStaticText(document, row);
    } else if (type == Marker::ImageRow) {
        if (kind == Marker::Camera)
            Draw_CamView(document, BoxOf(row), 1, CameraPlaceholder(), true, QString()).Fit =
                FitOf(row);
        else
            RowToImage(document, row);
    }
}

} // namespace vantrel
