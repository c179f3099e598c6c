#include "shell/DemoLayouts.h"
#include "layout/CardObject.h"
#include "layout/LayoutParams.h"
#include "platform/Connection.h"
#include "platform/Printer.h"
#include "platform/Recordset.h"
#include <QDir>

namespace vantrel {

namespace {
constexpr const char* MemberCard = "Member Card";
constexpr const char* Visitor = "Visitor";
constexpr const char* Device = "Vantrel PDF";

// Colours as the store has them, 0x00BBGGRR.
constexpr ColorValue Navy = 0x4F3216;
constexpr ColorValue Brass = 0x3A82A6;
constexpr ColorValue LightBrass = 0x7FC0DA;
constexpr ColorValue Grey = 0x857A70;
constexpr ColorValue White = ColorWhite;

enum class Align { Left = 0, Right = 1, Centre = 2 };
enum class Weight { Regular, Bold };
enum class Digit { None, Mod10 };

/// Where a text stands, in twips, and how it looks.
struct Place
{
    int Left;
    int Top;
    int Width;
    int Height;
    double Points;
    Weight Boldness;
    ColorValue Color;
    Align Alignment;
};

struct TextRow
{
    const char* Layout;
    int Page;
    const char* Text;
    Place At;
};

constexpr TextRow Texts[] = {
    {MemberCard,
     1,
     "Lakeside Sailing Club",
     {900, 190, 3740, 380, 15.5, Weight::Bold, White, Align::Left}},
    {MemberCard,
     1,
     "M E M B E R   C A R D",
     {900, 520, 3740, 190, 6.5, Weight::Regular, LightBrass, Align::Left}},
    {MemberCard, 1, "MEMBER", {1640, 1060, 3000, 150, 5.5, Weight::Regular, Grey, Align::Left}},
    {MemberCard,
     1,
     "MEMBER NUMBER",
     {1640, 1640, 3000, 150, 5.5, Weight::Regular, Grey, Align::Left}},
    {MemberCard, 1, "MEMBERSHIP", {1640, 2180, 1800, 150, 5.5, Weight::Regular, Grey, Align::Left}},
    {MemberCard, 1, "CARD", {4000, 2180, 640, 150, 5.5, Weight::Regular, Grey, Align::Right}},
    {MemberCard,
     2,
     "This card is the property of Lakeside Sailing Club.",
     {220, 1000, 3100, 170, 6.25, Weight::Bold, Navy, Align::Left}},
    {MemberCard,
     2,
     "It is personal, cannot be passed on, and opens the",
     {220, 1200, 3100, 170, 6.25, Weight::Regular, Navy, Align::Left}},
    {MemberCard,
     2,
     "boathouse and the slipway to its holder. Show it",
     {220, 1370, 3100, 170, 6.25, Weight::Regular, Navy, Align::Left}},
    {MemberCard,
     2,
     "when asked. If you find it, please send it to the",
     {220, 1540, 3100, 170, 6.25, Weight::Regular, Navy, Align::Left}},
    {MemberCard,
     2,
     "address below: postage will be refunded.",
     {220, 1710, 3100, 170, 6.25, Weight::Regular, Navy, Align::Left}},
    {MemberCard, 2, "SIGNATURE", {220, 2470, 2700, 150, 5.5, Weight::Regular, Grey, Align::Left}},
    {MemberCard,
     2,
     "MEMBER NUMBER",
     {3100, 2470, 1540, 150, 5.5, Weight::Regular, Grey, Align::Right}},
    {MemberCard,
     2,
     "Lakeside Sailing Club, 7 Harbour Road, Lakeside",
     {220, 2840, 3000, 150, 6, Weight::Regular, White, Align::Left}},
    {MemberCard,
     2,
     "lakeside.example",
     {3240, 2840, 1400, 150, 6, Weight::Regular, LightBrass, Align::Right}},
    {Visitor, 1, "VISITOR", {2760, 300, 1880, 480, 20, Weight::Bold, Navy, Align::Right}},
};

struct FieldRow
{
    const char* Layout;
    int Page;
    int Field;
    const char* Prefix;
    Digit CheckDigit;
    Place At;
};

constexpr FieldRow Fields[] = {
    {MemberCard,
     1,
     1,
     "",
     Digit::None,
     {1640, 1190, 3000, 340, 13, Weight::Bold, Navy, Align::Left}},
    {MemberCard,
     1,
     2,
     "No. ",
     Digit::Mod10,
     {1640, 1770, 3000, 280, 11, Weight::Regular, Navy, Align::Left}},
    {MemberCard,
     1,
     3,
     "",
     Digit::None,
     {1640, 2310, 1800, 280, 11, Weight::Bold, Brass, Align::Left}},
    {MemberCard,
     2,
     2,
     "No. ",
     Digit::Mod10,
     {3100, 2200, 1540, 220, 8.5, Weight::Bold, Navy, Align::Right}},
};

struct NumberRow
{
    const char* Layout;
    int Page;
    const char* Start;
    Place At;
};

constexpr NumberRow Numbers[] = {
    {MemberCard, 1, "1000", {3840, 2330, 800, 220, 8.5, Weight::Regular, Navy, Align::Right}},
};

struct ImageRow
{
    const char* Layout;
    int Page;
    const char* Picture;
    int Left;
    int Top;
    int Width;
    int Height;
};

constexpr ImageRow Images[] = {
    {MemberCard, 1, DemoPicture::Portrait, 220, 1070, 1180, 1570},
};

struct PageRow
{
    const char* Layout;
    int Page;
    bool AutoSpool;
    const char* BackImage;
    const char* Track1;
    const char* Track2;
    const char* Track3;
};

/// The stripe goes with the front: each page is a job of its own.
constexpr PageRow Pages[] = {
    {MemberCard, 1, true, DemoPicture::Front, "DAT1~SEP~DAT2~MOD10", "DAT2~MOD10", "FD0^12^0^2"},
    {MemberCard, 2, true, DemoPicture::Back, "", "", ""},
    // Fields that a record makes live until the page is saved, and a print reloads it.
    {Visitor, 1, false, "", "", "", ""},
};

QString Text(const char* text)
{
    return QString::fromUtf8(text);
}

/// The path of a picture in the folder, no path for none.
QString PathOf(const QString& folder, const char* name)
{
    return *name == '\0' ? QString() : QDir(folder).filePath(QLatin1StringView(name));
}

/// Adds one row of `Controls`, beginning with what every object has.
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
        Set("C_UseCodaBar", false);
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

void WriteObjects(Connection& connection, const QString& imageFolder)
{
    ObjectWriter writer(connection);
    for (const ImageRow& row : Images) {
        writer.Begin(row.Layout, row.Page, Marker::ImageRow);
        writer.SetBox(row.Left, row.Top, row.Width, row.Height);
        writer.Set("C_ImagePath", PathOf(imageFolder, row.Picture));
        writer.End();
    }
    for (const TextRow& row : Texts) {
        writer.Begin(row.Layout, row.Page, Marker::LabelRow);
        writer.SetLook(row.At);
        writer.Set("C_Param_1", QString(Marker::StaticTextRow));
        writer.Set("C_Value", Text(row.Text));
        writer.End();
    }
    for (const FieldRow& row : Fields) {
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
    for (const NumberRow& row : Numbers) {
        writer.Begin(row.Layout, row.Page, Marker::LabelRow);
        writer.SetLook(row.At);
        writer.SetCheckDigit(Digit::None);
        writer.Set("C_Param_1", QString(Marker::AutoNumber));
        writer.Set("C_Value", Text(row.Start));
        writer.End();
    }
}

void WritePages(Connection& connection, const QString& imageFolder)
{
    Recordset rows(connection);
    rows.Open(QStringLiteral("SELECT * FROM [LayoutParams]"), CursorLock::Optimistic);
    const auto set = [&rows](const char* column, const QVariant& value) {
        rows.SetValue(QString::fromLatin1(column), value);
    };
    for (const PageRow& row : Pages) {
        rows.AddNew();
        set("LayoutName", Text(row.Layout));
        set("PageIndex", row.Page);
        set("Encode", *row.Track1 != '\0');
        set("PrinterDevice", Text(Device));
        set("PrinterOrientation", OrientationLandscape);
        // Other types write the stripe as text on the page, which a PDF would show.
        set("PrinterType", PrinterTypeCode::Plain);
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
    WriteObjects(connection, imageFolder);
    WritePages(connection, imageFolder);
}

} // namespace vantrel
