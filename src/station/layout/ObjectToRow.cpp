#include "station/layout/ObjectToRow.h"
#include "base/Convert.h"
#include "card/CardObject.h"
#include "card/CheckDigits.h"
#include "card/RecordPicture.h"
#include "station/layout/PageKey.h"
#include "station/layout/SaveStep.h"
#include "store/Recordset.h"
#include <QFileInfo>
#include <QStringList>

namespace vantrel {

namespace {

/// Sets one column; a failure that a save allows leaves it null.
void Write(Recordset& rows, const QString& column, const QVariant& value)
{
    SaveStep("write column", [&] { rows.SetValue(column, value); });
}

void WriteGeometry(const CardObject& object, Recordset& rows)
{
    Write(rows, QStringLiteral("C_Top"), static_cast<double>(object.Top));
    Write(rows, QStringLiteral("C_Left"), static_cast<double>(object.Left));
    Write(rows, QStringLiteral("C_Width"), static_cast<double>(object.Width));
    Write(rows, QStringLiteral("C_Height"), static_cast<double>(object.Height));
}

void WriteCheckDigit(const CardObject& object, Recordset& rows)
{
    Write(rows, QStringLiteral("C_UseMod10"), object.DataMember == WordMod10);
    Write(rows, QStringLiteral("C_UseCodaBar"), object.DataMember == WordCodabar);
    Write(rows, QStringLiteral("C_UseEBT"), object.DataMember == WordEbt);
}

const QString& Piece(const QStringList& pieces, qsizetype number)
{
    if (number >= pieces.size()) {
        throw Failure(FailureNumber::SubscriptOutOfRange, QStringLiteral("Subscript out of range"));
    }
    return pieces[number];
}

/// An empty text has no parts, so both columns stay null for a field without prefix and suffix.
void WritePrefixAndSuffix(const CardObject& object, Recordset& rows)
{
    const QStringList pieces =
        object.ToolTipText.isEmpty() ? QStringList() : object.ToolTipText.split(QLatin1Char('\r'));
    SaveStep("prefix", [&] { rows.SetValue(QStringLiteral("C_Prefix"), Piece(pieces, 0)); });
    SaveStep("suffix", [&] { rows.SetValue(QStringLiteral("C_Suffix"), Piece(pieces, 1)); });
}

void WriteKindOfText(const CardObject& object, Recordset& rows)
{
    if (object.LinkItem == Marker::DataField) {
        Write(rows, QStringLiteral("C_Param_1"), QString(Marker::DataFieldRow));
        Write(rows, QStringLiteral("C_Param_2"), object.Tag);
        Write(rows, QStringLiteral("C_Param_3"), object.DataField);
        WriteCheckDigit(object, rows);
        WritePrefixAndSuffix(object, rows);
    } else if (object.LinkItem == Marker::StaticText) {
        Write(rows, QStringLiteral("C_Param_1"), QString(Marker::StaticTextRow));
        Write(rows, QStringLiteral("C_Value"), object.Caption());
    } else if (object.LinkItem == Marker::AutoNumber) {
        Write(rows, QStringLiteral("C_Param_1"), QString(Marker::AutoNumber));
        Write(rows, QStringLiteral("C_Value"), object.DataField);
        WriteCheckDigit(object, rows);
    }
}

/// Rounds a font size to the four decimals of the stored format.
double FourDecimals(double value)
{
    constexpr double scale = 10000;
    return RoundHalfToEven(value * scale) / scale;
}

void WriteFont(const Font& font, Recordset& rows)
{
    Write(rows, QStringLiteral("C_FontName"), font.Name);
    Write(rows, QStringLiteral("C_FontSize"), FourDecimals(font.Size));
    Write(rows, QStringLiteral("C_FontBold"), font.Bold);
    Write(rows, QStringLiteral("C_FontItalic"), font.Italic);
    Write(rows, QStringLiteral("C_FontUnderline"), font.Underline);
    Write(rows, QStringLiteral("C_FontStrikethrough"), font.Strikethrough);
}

/// Clears the current row, or adds a new one after the last.
void BeginRow(Recordset& rows)
{
    SaveStep("begin row", [&] {
        if (rows.IsEof())
            rows.AddNew();
        else
            rows.ClearRow();
    });
}

void EndRow(Recordset& rows)
{
    SaveStep("update row", [&] { rows.Update(); });
    rows.MoveNext();
}

void WriteText(const CardObject& object, const Font& font, const PageKey& key, Recordset& rows)
{
    BeginRow(rows);
    WriteKindOfText(object, rows);
    Write(rows, QStringLiteral("Control_Type"), QString(Marker::LabelRow));
    Write(rows, QStringLiteral("LayoutName"), key.LayoutName);
    Write(rows, QStringLiteral("C_Alignment"), static_cast<int>(object.Alignment));
    WriteGeometry(object, rows);
    WriteFont(font, rows);
    Write(rows, QStringLiteral("C_ForeColor"), object.ForeColor);
    Write(rows, QStringLiteral("C_BackColor"), object.BackColor);
    Write(rows, QStringLiteral("Page"), static_cast<int>(key.Page));
    EndRow(rows);
}

/// If the file does not exist now, its path is not stored and so is lost, unless a record or a row
/// of a file names the picture.
void WriteImage(const CardObject& object, const PageKey& key, const PictureSource& pictures,
                Recordset& rows)
{
    BeginRow(rows);
    Write(rows, QStringLiteral("Page"), static_cast<int>(key.Page));
    Write(rows, QStringLiteral("Control_Type"), QString(Marker::ImageRow));
    Write(rows, QStringLiteral("LayoutName"), key.LayoutName);
    WriteGeometry(object, rows);
    if (pictures.MayBeNamedByRow(object.Tag) || QFileInfo(object.Tag).isFile())
        Write(rows, QStringLiteral("C_ImagePath"), object.Tag);
    else if (object.Tag == Marker::Camera)
        Write(rows, QStringLiteral("C_Param_1"), QString(Marker::Camera));
    if (const QLatin1StringView word = WordOfFit(object.Fit); !word.isEmpty())
        Write(rows, QStringLiteral("C_Param_2"), QString(word));
    EndRow(rows);
}

} // namespace

void ObjectToRow(const CardObject& object, const PageKey& key, const PictureSource& pictures,
                 Recordset& rows)
{
    Font font;
    SaveStep("font", [&] { font = object.Font(); });
    if (object.IsLabel())
        WriteText(object, font, key, rows);
    else if (object.IsImage())
        WriteImage(object, key, pictures, rows);
}

} // namespace vantrel
