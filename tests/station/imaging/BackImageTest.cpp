#include "station/imaging/BackImage.h"
#include "base/Failure.h"
#include "base/Profile.h"
#include "drawing/PageCanvas.h"
#include "station/imaging/AcrobatFile.h"
#include "station/layout/LoadLayout.h"
#include "station/layout/SaveLayout.h"
#include "station/session/Settings.h"
#include "store/Recordset.h"
#include "support/FailureOf.h"
#include "support/Layouts.h"
#include <QFile>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

const QString ConversionError = QStringLiteral(
    "Conversion Error|There was an error converting some or all of the pages of the selected "
    "Acrobat Reader file. \r\nPlease check that the file is not corrupted.");

/// A page that asks for a password before it shows.
constexpr const char* EncryptedPdf =
    "JVBERi0xLjYKJb/3ov4KMSAwIG9iago8PCAvUGFnZXMgMiAwIFIgL1R5cGUgL0NhdGFsb2cgPj4K"
    "ZW5kb2JqCjIgMCBvYmoKPDwgL0NvdW50IDEgL0tpZHMgWyAzIDAgUiBdIC9UeXBlIC9QYWdlcyA+"
    "PgplbmRvYmoKMyAwIG9iago8PCAvTWVkaWFCb3ggWyAwIDAgNTAgMzAgXSAvUGFyZW50IDIgMCBS"
    "IC9UeXBlIC9QYWdlID4+CmVuZG9iago0IDAgb2JqCjw8IC9DRiA8PCAvU3RkQ0YgPDwgL0F1dGhF"
    "dmVudCAvRG9jT3BlbiAvQ0ZNIC9BRVNWMiAvTGVuZ3RoIDE2ID4+ID4+IC9GaWx0ZXIgL1N0YW5k"
    "YXJkIC9MZW5ndGggMTI4IC9PIDwwZGI1ODU1ZmM1MzI2NTY5ZTc2NTkwNmNhZjY0ZTQ0MjlhNGMy"
    "MGQ2ZTk5NmZkZWY5NjNlOWI1MDgwZjllMDgzPiAvUCAtNCAvUiA0IC9TdG1GIC9TdGRDRiAvU3Ry"
    "RiAvU3RkQ0YgL1UgPDY2NTVjZWQ3MmRmODcwYjg5ZTg0YTdhMGFhZDcyYzVhMDEyMjQ1NmE5MWJh"
    "ZTUxMzQyNzNhNmRiMTM0Yzg3YzQ+IC9WIDQgPj4KZW5kb2JqCnhyZWYKMCA1CjAwMDAwMDAwMDAg"
    "NjU1MzUgZiAKMDAwMDAwMDAxNSAwMDAwMCBuIAowMDAwMDAwMDY0IDAwMDAwIG4gCjAwMDAwMDAx"
    "MjMgMDAwMDAgbiAKMDAwMDAwMDE5NCAwMDAwMCBuIAp0cmFpbGVyIDw8IC9Sb290IDEgMCBSIC9J"
    "RCBbPDljNmIxODQ4ZTI1NzVmNWFjN2NlZjNlNGEzZTU3YWE5Pjw5YzZiMTg0OGUyNTc1ZjVhYzdj"
    "ZWYzZTRhM2U1N2FhOT5dIC9FbmNyeXB0IDQgMCBSID4+CnN0YXJ0eHJlZgo0OTMKJSVFT0YK";

/// A station with a stored layout open whose page has a back image.
class BackedStation : public TestSession
{
public:
    BackedStation()
    {
        WithDatabase();
        First = WritePng(QStringLiteral("first.png"), 30, 20);
        BeginLayout(Session, QStringLiteral("Badge"));
        AddText(Session, QStringLiteral("Visitor"));
        SetBackImage(Session, First);
        SavePage(Session);
    }

    QString StoredPath()
    {
        Recordset row(Session.LayoutDb);
        row.Open(QStringLiteral("SELECT * FROM [LayoutParams] WHERE [LayoutName] = 'Badge'"));
        return row.Value(QStringLiteral("BackImg1")).toString();
    }
    void TurnPdfImportOn() const
    {
        ASSERT_TRUE(WriteProfileValue(SettingsPath(Session.ProgramFolder),
                                      QStringLiteral("Station"), QStringLiteral("PdfImport"),
                                      QStringLiteral("True")));
    }
    /// Writes a one-page PDF of that size in twips with a black box in its upper left quarter.
    QString WritePdf(const QString& name, double width, double height) const
    {
        QString path = Session.PathInFolder(name);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        const auto canvas = PageCanvas::OnPdf(width, height, [&](const char* bytes, std::size_t n) {
            return file.write(bytes, static_cast<qint64>(n)) == static_cast<qint64>(n);
        });
        QImage black(4, 4, QImage::Format_RGB32);
        black.fill(Qt::black);
        canvas->PaintPicture(Picture::FromImage(black), 0, 0, width / 2, height / 2);
        canvas->Finish();
        return path;
    }

    QString First;
};

TEST(BackImage, IsSetOnTheDocumentAndInTheRecord)
{
    BackedStation station;
    const QString second = station.WritePng(QStringLiteral("second.png"), 40, 30);
    SetBackImage(station.Session, second);
    EXPECT_EQ(station.Session.Document.Tag, second);
    EXPECT_EQ(station.Session.CurrentParams.BackImg1Path, second);
    EXPECT_EQ(station.Session.CurrentParams.BackImg1Picture.Image().width(), 40);
}

TEST(BackImage, ReachesTheStoreWithTheSaveOnly)
{
    BackedStation station;
    const QString second = station.WritePng(QStringLiteral("second.png"), 40, 30);
    SetBackImage(station.Session, second);
    EXPECT_EQ(station.StoredPath(), station.First);
    CloseLayout(station.Session);
    ASSERT_TRUE(LoadLayout(station.Session, QStringLiteral("Badge")));
    EXPECT_EQ(station.Session.CurrentParams.BackImg1Path, station.First);
    SetBackImage(station.Session, second);
    SaveLayout(station.Session, SaveMessages::Silent);
    EXPECT_EQ(station.StoredPath(), second);
}

TEST(BackImage, AMissingFileOrACancelChangesNothing)
{
    BackedStation station;
    SetBackImage(station.Session, QString());
    SetBackImage(station.Session, station.Session.PathInFolder(QStringLiteral("gone.png")));
    EXPECT_EQ(station.Session.Document.Tag, station.First);
    EXPECT_EQ(station.Session.CurrentParams.BackImg1Path, station.First);
}

TEST(BackImage, AFileThatIsNoPictureLeavesItsPathOnTheDocument)
{
    BackedStation station;
    const QString text = station.Session.PathInFolder(QStringLiteral("text.png"));
    QFile file(text);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("no picture");
    file.close();
    SetBackImage(station.Session, text);
    EXPECT_EQ(station.Session.Document.Tag, text);
    EXPECT_EQ(station.Session.CurrentParams.BackImg1Path, station.First);
    EXPECT_TRUE(station.Session.CurrentParams.BackImg1Picture.HasHandle());
    EXPECT_EQ(station.Operator.AppMessages, QStringList());
}

TEST(BackImage, ClearWritesTheStoreAtOnce)
{
    BackedStation station;
    station.Session.CurrentParams.BackImg2Path = QStringLiteral("second");
    ClearBackImages(station.Session);
    EXPECT_EQ(station.StoredPath(), QString());
    EXPECT_EQ(station.Session.CurrentParams.BackImg1Path, QString());
    EXPECT_EQ(station.Session.CurrentParams.BackImg2Path, QString());
    EXPECT_FALSE(station.Session.CurrentParams.BackImg1Picture.HasHandle());
    CloseLayout(station.Session);
    ASSERT_TRUE(LoadLayout(station.Session, QStringLiteral("Badge")));
    EXPECT_EQ(station.Session.CurrentParams.BackImg1Path, QString());
}

TEST(BackImage, ClearWritesNothingWithoutALayout)
{
    BackedStation station;
    CloseLayout(station.Session);
    ClearBackImages(station.Session);
    Recordset rows(station.Session.LayoutDb);
    rows.Open(QStringLiteral("SELECT * FROM [LayoutParams] WHERE [LayoutName] = ''"));
    EXPECT_TRUE(rows.IsEof());
    EXPECT_EQ(station.StoredPath(), station.First);
}

TEST(BackImage, APdfFileClearsItByDefault)
{
    BackedStation station;
    const QString pdf = station.WritePdf(QStringLiteral("card.pdf"), 4860, 3060);
    EXPECT_EQ(ConvertAcrobatFile(station.Session.ProgramFolder, pdf), QString());
    ImportAcrobatFile(station.Session, pdf);
    EXPECT_EQ(station.Session.Document.Tag, QString());
    EXPECT_EQ(station.Session.CurrentParams.BackImg1Path, QString());
    EXPECT_FALSE(station.Session.CurrentParams.BackImg1Picture.HasHandle());
    EXPECT_EQ(station.Operator.AppMessages, QStringList());
    EXPECT_EQ(station.StoredPath(), station.First);
}

TEST(BackImage, ACancelledPdfClearsItToo)
{
    BackedStation station;
    ImportAcrobatFile(station.Session, QString());
    EXPECT_EQ(station.Session.CurrentParams.BackImg1Path, QString());
    EXPECT_EQ(station.Operator.AppMessages, QStringList());
}

TEST(PdfImport, RendersTheFirstPageAt300DotsToTheInch)
{
    BackedStation station;
    station.TurnPdfImportOn();
    ImportAcrobatFile(station.Session, station.WritePdf(QStringLiteral("card.pdf"), 4860, 3060));
    const QString path = station.Session.PathInFolder(QStringLiteral("card.png"));
    EXPECT_EQ(station.Session.CurrentParams.BackImg1Path, path);
    EXPECT_EQ(station.Session.Document.Tag, path);
    const QImage page(path);
    EXPECT_NEAR(page.width(), 4860 * 300.0 / 1440, 1);
    EXPECT_NEAR(page.height(), 3060 * 300.0 / 1440, 1);
    EXPECT_EQ(page.pixelColor(10, 10), QColor(Qt::black));
    EXPECT_EQ(page.pixelColor(page.width() - 10, page.height() - 10), QColor(Qt::white));
}

TEST(PdfImport, NeverReplacesAnEarlierPicture)
{
    BackedStation station;
    station.TurnPdfImportOn();
    const QString pdf = station.WritePdf(QStringLiteral("card.pdf"), 4860, 3060);
    const QString first = ConvertAcrobatFile(station.Session.ProgramFolder, pdf);
    const QString second = ConvertAcrobatFile(station.Session.ProgramFolder, pdf);
    EXPECT_EQ(first, station.Session.PathInFolder(QStringLiteral("card.png")));
    EXPECT_EQ(second, station.Session.PathInFolder(QStringLiteral("card 2.png")));
    EXPECT_TRUE(QFile::exists(first));
    EXPECT_TRUE(QFile::exists(second));
}

TEST(PdfImport, ABrokenEmptyOrMissingFileIsReported)
{
    BackedStation station;
    station.TurnPdfImportOn();
    QFile whole(station.WritePdf(QStringLiteral("whole.pdf"), 4860, 3060));
    ASSERT_TRUE(whole.open(QIODevice::ReadOnly));
    const QByteArray bytes = whole.readAll();
    const QList<QByteArray> contents = {"", "no PDF at all", bytes.left(40)};
    for (const QByteArray& content : contents) {
        QFile file(station.Session.PathInFolder(QStringLiteral("broken.pdf")));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        file.close();
        ImportAcrobatFile(station.Session, file.fileName());
        EXPECT_EQ(station.Operator.AppMessages, QStringList{ConversionError});
        station.Operator.AppMessages.clear();
    }
    ImportAcrobatFile(station.Session, station.Session.PathInFolder(QStringLiteral("gone.pdf")));
    EXPECT_EQ(station.Operator.AppMessages, QStringList{ConversionError});
    EXPECT_EQ(station.Session.CurrentParams.BackImg1Path, station.First);
}

TEST(PdfImport, AnEncryptedFileIsReported)
{
    BackedStation station;
    station.TurnPdfImportOn();
    QFile file(station.Session.PathInFolder(QStringLiteral("locked.pdf")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray::fromBase64(EncryptedPdf));
    file.close();
    ImportAcrobatFile(station.Session, file.fileName());
    EXPECT_EQ(station.Operator.AppMessages, QStringList{ConversionError});
    EXPECT_EQ(station.Session.CurrentParams.BackImg1Path, station.First);
}

TEST(PdfImport, APageTooLargeForACardIsRefused)
{
    BackedStation station;
    station.TurnPdfImportOn();
    const QString poster = station.WritePdf(QStringLiteral("poster.pdf"), 200000, 200000);
    EXPECT_EQ(FailureOf([&] { ConvertAcrobatFile(station.Session.ProgramFolder, poster); }),
              FailureNumber::InvalidPicture);
}

TEST(PdfImport, AnyValueButTrueLeavesItOff)
{
    BackedStation station;
    for (const char* value : {"False", "0", "maybe", ""}) {
        ASSERT_TRUE(WriteProfileValue(SettingsPath(station.Session.ProgramFolder),
                                      QStringLiteral("Station"), QStringLiteral("PdfImport"),
                                      QLatin1StringView(value)));
        EXPECT_EQ(ConvertAcrobatFile(station.Session.ProgramFolder, QStringLiteral("any.pdf")),
                  QString())
            << value;
    }
}

} // namespace
} // namespace vantrel::test
