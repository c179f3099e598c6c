#include "samples/DemoLayouts.h"
#include "card/CardObject.h"
#include "printers/Printer.h"
#include "samples/DemoTables.h"
#include "samples/GalleryTables.h"
#include "station/layout/LayoutParams.h"
#include "store/Connection.h"
#include "store/Recordset.h"
#include <QDir>

namespace vantrel {

namespace {
using namespace demo;

QString Text(const char* text)
{
    return QString::fromUtf8(text);
}

/// The path of a picture in the folder; empty for no picture.
QString PathOf(const QString& folder, const char* name)
{
    return *name == '\0' ? QString() : QDir(folder).filePath(QLatin1StringView(name));
}

/// Adds one row of `Controls`, starting with the columns of all objects.
class ObjectWriter
{
public:
    explicit ObjectWriter(Connection& connection) : m_rows(connection)
    {
        m_rows.Open(QStringLiteral("SELECT * FROM [Controls]"), CursorLock::Optimistic);
    }

    void Begin(const char* layout, int page, QLatin1StringView type)
    {
        m_rows.AddNew();
        Set("LayoutName", Text(layout));
        Set("Page", page);
        Set("Control_Type", QString(type));
    }

    void SetBox(int left, int top, int width, int height)
    {
        Set("C_Left", left);
        Set("C_Top", top);
        Set("C_Width", width);
        Set("C_Height", height);
    }

    void SetLook(const Place& place)
    {
        SetBox(place.Left, place.Top, place.Width, place.Height);
        Set("C_Alignment", static_cast<int>(place.Alignment));
        Set("C_FontName", QStringLiteral("Liberation Sans"));
        Set("C_FontSize", place.Points);
        Set("C_FontBold", place.Boldness == Weight::Bold);
        for (const char* off : {"C_FontItalic", "C_FontUnderline", "C_FontStrikethrough"})
            Set(off, false);
        Set("C_ForeColor", place.Color);
        Set("C_BackColor", ColorWhite);
    }

    void SetCheckDigit(Digit digit)
    {
        Set("C_UseMod10", digit == Digit::Mod10);
        Set("C_UseCodaBar", digit == Digit::Codabar);
        Set("C_UseEBT", false);
    }

    void Set(const char* column, const QVariant& value)
    {
        m_rows.SetValue(QString::fromLatin1(column), value);
    }

    void End() { m_rows.Update(); }

private:
    Recordset m_rows;
};

void WriteObjects(Connection& connection, const Samples& samples, const QString& imageFolder)
{
    ObjectWriter writer(connection);
    for (const ImageRow& row : samples.Images) {
        writer.Begin(row.Layout, row.Page, Marker::ImageRow);
        writer.SetBox(row.Left, row.Top, row.Width, row.Height);
        writer.Set("C_ImagePath", PathOf(imageFolder, row.Picture));
        writer.End();
    }
    for (const TextRow& row : samples.Texts) {
        writer.Begin(row.Layout, row.Page, Marker::LabelRow);
        writer.SetLook(row.At);
        writer.Set("C_Param_1", QString(Marker::StaticTextRow));
        writer.Set("C_Value", Text(row.Text));
        writer.End();
    }
    for (const FieldRow& row : samples.Fields) {
        writer.Begin(row.Layout, row.Page, Marker::LabelRow);
        writer.SetLook(row.At);
        writer.SetCheckDigit(row.CheckDigit);
        writer.Set("C_Param_1", QString(Marker::DataFieldRow));
        writer.Set("C_Param_2", QString());
        writer.Set("C_Param_3", QString::number(row.Field));
        writer.Set("C_Prefix", Text(row.Prefix));
        writer.Set("C_Suffix", QString());
        writer.End();
    }
    for (const NumberRow& row : samples.Numbers) {
        writer.Begin(row.Layout, row.Page, Marker::LabelRow);
        writer.SetLook(row.At);
        writer.SetCheckDigit(Digit::None);
        writer.Set("C_Param_1", QString(Marker::AutoNumber));
        writer.Set("C_Value", Text(row.Start));
        writer.End();
    }
}

void WritePages(Connection& connection, const Samples& samples, const QString& imageFolder)
{
    Recordset rows(connection);
    rows.Open(QStringLiteral("SELECT * FROM [LayoutParams]"), CursorLock::Optimistic);
    const auto set = [&rows](const char* column, const QVariant& value) {
        rows.SetValue(QString::fromLatin1(column), value);
    };
    for (const PageRow& row : samples.Pages) {
        rows.AddNew();
        set("LayoutName", Text(row.Layout));
        set("PageIndex", row.Page);
        set("Encode", *row.Track1 != '\0');
        set("PrinterDevice", QStringLiteral("Vantrel PDF"));
        set("PrinterOrientation", row.Orientation);
        set("PrinterType", row.PrinterType);
        set("PrinterCopies", 1);
        set("Track1", Text(row.Track1));
        set("Track2", Text(row.Track2));
        set("Track3", Text(row.Track3));
        set("BackImg1", PathOf(imageFolder, row.BackImage));
        set("BackImg2", QString());
        set("AutoSpool", row.AutoSpool);
        rows.Update();
    }
}
} // namespace

void WriteDemoLayouts(Connection& connection, const QString& imageFolder)
{
    for (const Samples& samples : {MemberSamples, GallerySamples}) {
        WriteObjects(connection, samples, imageFolder);
        WritePages(connection, samples, imageFolder);
    }
}

} // namespace vantrel
