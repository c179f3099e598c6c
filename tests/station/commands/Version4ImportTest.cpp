#include "station/commands/Version4Import.h"
#include "card/CardDocument.h"
#include "drawing/PageCanvas.h"
#include "store/Recordset.h"
#include "support/Layouts.h"
#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

/// A version 4 session with two fields, one text and a logo, as lines without their line ends.
const QList<QByteArray> CardLines = {
    "[Settings]",
    "NumberOfFields=2",
    "CardDatafldCaption0=Name",
    "CardDatafldAlign0=1",
    "CardDatafldTop0=400",
    "CardDatafldLeft0=300",
    "CardDatafldFontName0=DejaVu Sans",
    "CardDatafldFontSize0=14",
    "CardDatafldFontBold0=True",
    "CardDatafldFontItalic0=False",
    "CardDatafldFontUnderline0=0",
    "CardDatafldFontColor0=255",
    "CardDatafldCaption1=Number",
    "CardDatafldAlign1=0",
    "CardDatafldTop1=900",
    "CardDatafldLeft1=350",
    "CardDatafldFontName1=Liberation Serif",
    "CardDatafldFontSize1=8.25",
    "CardDatafldFontBold1=0",
    "CardDatafldFontItalic1=-1",
    "CardDatafldFontUnderline1=True",
    "CardDatafldFontColor1=16711680",
    "NumberOfText=1",
    // In code page 1252: u umlaut and the euro sign.
    "Text0=M\xfcnchen 5 \x80",
    "TextAlign0=2",
    "TextTop0=1200",
    "TextLeft0=360",
    "TextFontName0=DejaVu Sans",
    "TextFontSize0=10",
    "TextFontBold0=False",
    "TextFontItalic0=False",
    "TextFontUnderline0=False",
    "TextFontColor0=0",
    "[Picture]",
    "Checked=1",
    "LogoName=logo.png",
    "Top=100",
    "Left=200",
    "Width=700",
    "Height=500",
};

struct Drawn
{
    int Fields;
    int Texts;
    int Images;

    friend bool operator==(const Drawn&, const Drawn&) = default;
};

std::ostream& operator<<(std::ostream& out, const Drawn& drawn)
{
    return out << drawn.Fields << " fields, " << drawn.Texts << " texts, " << drawn.Images
               << " images";
}

/// A station without a layout, beside whose program an old session's file and logo lie.
class OldStation : public TestSession
{
public:
    OldStation()
    {
        WithDatabase();
        WritePng(QStringLiteral("logo.png"), 20, 10);
    }

    /// Changes the value of a key; an empty line takes the key out.
    OldStation& With(const QByteArray& key, const QByteArray& line)
    {
        for (QByteArray& each : m_lines) {
            if (each.startsWith(QByteArray(key + '=')))
                each = line;
        }
        return *this;
    }
    Drawn Import(const QByteArray& lineEnd = "\r\n")
    {
        const QString path = Session.PathInFolder(QStringLiteral("Session.ini"));
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(m_lines.join(lineEnd));
        file.close();
        ImportVersion4Session(Session, path);
        const CardDocument& document = Session.Document;
        return {document.HighestIndex(Family::lbl_DATA), document.HighestIndex(Family::lbl_TEXT),
                document.HighestIndex(Family::img_LXV)};
    }
    CardObject& Object(Family family, int index) { return *Session.Document.Find(family, index); }

private:
    QList<QByteArray> m_lines = CardLines;
};

void ExpectSizeOfCaption(const CardObject& object)
{
    EXPECT_FLOAT_EQ(object.Width,
                    static_cast<float>(PageCanvas::TextWidth(object.Caption(), object.Font())));
    EXPECT_FLOAT_EQ(object.Height,
                    static_cast<float>(PageCanvas::TextHeight(object.Caption(), object.Font())));
}

TEST(Version4Import, DrawsTheFieldsWithTheirPlaceFontAndColour)
{
    OldStation station;
    EXPECT_EQ(station.Import(), (Drawn{2, 1, 1}));
    const CardObject& name = station.Object(Family::lbl_DATA, 1);
    EXPECT_EQ(name.DataField, QStringLiteral("1"));
    EXPECT_EQ(name.Top, 400);
    EXPECT_EQ(name.Left, 300);
    EXPECT_EQ(name.Font(), (Font{QStringLiteral("DejaVu Sans"), 14, true, false, false, false}));
    EXPECT_EQ(name.ForeColor, 255);
    EXPECT_EQ(name.BackColor, ColorWhite);
    ExpectSizeOfCaption(name);
    const CardObject& number = station.Object(Family::lbl_DATA, 2);
    EXPECT_EQ(number.DataField, QStringLiteral("2"));
    EXPECT_EQ(number.Font(),
              (Font{QStringLiteral("Liberation Serif"), 8.25, false, true, true, false}));
    EXPECT_EQ(number.ForeColor, 16711680);
    ExpectSizeOfCaption(number);
}

TEST(Version4Import, AFieldIsCaptionedByItsNumberAsEveryFieldIs)
{
    OldStation station;
    station.Import();
    EXPECT_EQ(station.Object(Family::lbl_DATA, 1).Caption(), QStringLiteral("Data Field 1"));
    EXPECT_EQ(station.Object(Family::lbl_DATA, 1).Alignment, 0);
}

TEST(Version4Import, DrawsTheStaticTextInTheCodePageOfItsTime)
{
    OldStation station;
    station.Import();
    const CardObject& text = station.Object(Family::lbl_TEXT, 1);
    EXPECT_EQ(text.Caption(), QStringLiteral("M\u00fcnchen 5 \u20ac"));
    EXPECT_EQ(text.Top, 1200);
    EXPECT_EQ(text.Left, 360);
    ExpectSizeOfCaption(text);
}

TEST(Version4Import, DrawsTheLogoFromTheProgramFolder)
{
    OldStation station;
    station.Import();
    const CardObject& logo = station.Object(Family::img_LXV, 1);
    EXPECT_EQ(logo.Tag, station.Session.PathInFolder(QStringLiteral("logo.png")));
    EXPECT_TRUE(logo.Picture.HasHandle());
    EXPECT_TRUE(logo.Visible);
    EXPECT_EQ(logo.Top, 100);
    EXPECT_EQ(logo.Left, 200);
    EXPECT_EQ(logo.Width, 700);
    EXPECT_EQ(logo.Height, 500);
}

TEST(Version4Import, TheLogoMayLieInAFolderOfTheProgramFolder)
{
    OldStation station;
    ASSERT_TRUE(QDir(station.Session.ProgramFolder).mkpath(QStringLiteral("Logos/Pool")));
    const QString path = station.WritePng(QStringLiteral("Logos/Pool/logo.png"), 20, 10);
    station.With("LogoName", "LogoName=Logos\\Pool\\logo.png");
    EXPECT_EQ(station.Import(), (Drawn{2, 1, 1}));
    EXPECT_EQ(station.Object(Family::img_LXV, 1).Tag, path);
}

TEST(Version4Import, ReadsBothLineEnds)
{
    OldStation station;
    EXPECT_EQ(station.Import("\n"), (Drawn{2, 1, 1}));
    EXPECT_EQ(station.Object(Family::lbl_TEXT, 1).Caption(),
              QStringLiteral("M\u00fcnchen 5 \u20ac"));
}

TEST(Version4Import, ACountOfZeroGoesOnToTheTexts)
{
    OldStation station;
    EXPECT_EQ(station.With("NumberOfFields", "NumberOfFields=0").Import(), (Drawn{0, 1, 1}));
}

TEST(Version4Import, AMissingLogoEndsItBehindTheTexts)
{
    OldStation station;
    EXPECT_EQ(station.With("LogoName", "LogoName=gone.png").Import(), (Drawn{2, 1, 0}));
}

TEST(Version4Import, ThePictureKeysAreReadOnlyWhenTicked)
{
    OldStation station;
    station.With("Checked", "Checked=0").With("Top", "Top=broken").With("LogoName", "");
    EXPECT_EQ(station.Import(), (Drawn{2, 1, 0}));
}

TEST(Version4Import, WorksWithoutALayoutAndSavesNothing)
{
    OldStation station;
    EXPECT_EQ(station.Import(), (Drawn{2, 1, 1}));
    EXPECT_EQ(station.Session.CurrentLayoutName, QString());
    Recordset rows(station.Session.LayoutDb);
    for (const char* table : {"Controls", "LayoutParams"}) {
        rows.Open(QStringLiteral("SELECT * FROM [%1]").arg(QLatin1StringView(table)));
        EXPECT_EQ(rows.RecordCount(), 0) << table;
    }
}

struct BrokenLine
{
    const char* Key;
    const char* Line;
    Drawn Left;
};

// Objects that were drawn before the unreadable line stay.
const BrokenLine BrokenLines[] = {
    {"NumberOfFields", "", {0, 0, 0}},
    {"NumberOfFields", "NumberOfFields=many", {0, 0, 0}},
    {"NumberOfFields", "NumberOfFields=40000", {0, 0, 0}},
    {"NumberOfFields", "NumberOfFields=3", {2, 0, 0}},
    {"CardDatafldAlign0", "CardDatafldAlign0=", {0, 0, 0}},
    {"CardDatafldTop0", "CardDatafldTop0=top", {0, 0, 0}},
    {"CardDatafldLeft1", "", {1, 0, 0}},
    {"CardDatafldFontSize1", "CardDatafldFontSize1=big", {1, 0, 0}},
    {"CardDatafldFontBold1", "CardDatafldFontBold1=bold", {1, 0, 0}},
    {"CardDatafldFontItalic1", "", {1, 0, 0}},
    {"CardDatafldFontUnderline1", "", {1, 0, 0}},
    {"CardDatafldFontColor1", "CardDatafldFontColor1=red", {1, 0, 0}},
    {"NumberOfText", "", {2, 0, 0}},
    {"TextTop0", "TextTop0=99999999999", {2, 0, 0}},
    {"TextFontColor0", "", {2, 0, 0}},
    {"Checked", "Checked=yes", {2, 1, 0}},
    {"LogoName", "", {2, 1, 0}},
    {"Width", "", {2, 1, 0}},
};

TEST(Version4Import, ALineThatCannotBeReadEndsItAtThatPoint)
{
    for (const BrokenLine& row : BrokenLines) {
        OldStation station;
        EXPECT_EQ(station.With(row.Key, row.Line).Import(), row.Left)
            << row.Key << ": " << row.Line;
        EXPECT_EQ(station.Operator.AppMessages + station.Operator.Boxes, QStringList()) << row.Key;
    }
    EXPECT_EQ(std::size(BrokenLines), 18U);
}

TEST(Version4Import, AFileThatIsNotThereDrawsNothing)
{
    TestSession station;
    ImportVersion4Session(station.Session, station.Session.PathInFolder(QStringLiteral("no.ini")));
    ImportVersion4Session(station.Session, station.Session.ProgramFolder);
    EXPECT_FALSE(station.Session.Document.IsLoaded());
}

TEST(Version4Import, AFontBeyondAllBoundsDoesNoHarm)
{
    for (const char* size : {"0", "-5", "1e9", "1e300"}) {
        OldStation station;
        station.With("CardDatafldFontSize0", QByteArray("CardDatafldFontSize0=") + size);
        const Drawn drawn = station.Import();
        EXPECT_GE(drawn.Fields, 0) << size;
        if (drawn.Fields > 0) {
            EXPECT_TRUE(std::isfinite(station.Object(Family::lbl_DATA, 1).Width)) << size;
        }
    }
}

} // namespace
} // namespace vantrel::test
