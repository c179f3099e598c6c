#include "station/print/PrintCard.h"
#include "station/session/Session.h"
#include "support/Layouts.h"
#include <QFile>
#include <gtest/gtest.h>

// Objects that are missing and printer steps that are refused are passed over; the rest of the card
// prints.

namespace vantrel::test {
namespace {

void MakeCard(vantrel::Session& session)
{
    BeginLayout(session, QStringLiteral("Card"));
    AddText(session, QStringLiteral("text"));
    AddNumber(session, 1);
    SavePage(session);
}

QStringList Texts(const TestSession& station)
{
    QStringList texts = station.Printers.Only({QStringLiteral("Print(")});
    texts.removeAll(QStringLiteral("Print(\" \")"));
    return texts;
}

TEST(PrintFaults, AMissingImageIsAbsentAndStopsNothing)
{
    TestSession station;
    station.WithDatabase();
    BeginLayout(station.Session, QStringLiteral("Card"));
    const QString path = station.WritePng(QStringLiteral("gone.png"), 4, 4);
    AddImage(station.Session, path);
    AddText(station.Session, QStringLiteral("text"));
    SavePage(station.Session);
    ASSERT_TRUE(QFile::remove(path));
    PrintCard(station.Session);
    EXPECT_TRUE(station.Printers.Only({QStringLiteral("PaintPicture")}).isEmpty());
    EXPECT_EQ(Texts(station), QStringList({QStringLiteral("Print(\"text\")")}));
    EXPECT_EQ(station.Printers.Operations.count(QStringLiteral("EndDoc")), 1);
}

TEST(PrintFaults, AnImageThatIsNoPictureIsAbsent)
{
    TestSession station;
    station.WithDatabase();
    BeginLayout(station.Session, QStringLiteral("Card"));
    const QString path = station.Session.PathInFolder(QStringLiteral("broken.png"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("this is no picture");
    file.close();
    AddImage(station.Session, path);
    AddText(station.Session, QStringLiteral("text"));
    SavePage(station.Session);
    PrintCard(station.Session);
    EXPECT_TRUE(station.Printers.Only({QStringLiteral("PaintPicture")}).isEmpty());
    EXPECT_EQ(Texts(station), QStringList({QStringLiteral("Print(\"text\")")}));
}

TEST(PrintFaults, ACameraObjectWithoutAPicturePrintsNothingAndStopsNothing)
{
    TestSession station;
    station.WithDatabase();
    BeginLayout(station.Session, QStringLiteral("Card"));
    CardObject& camera = station.Session.Document.Add(Family::img_CAM);
    camera.Tag = Marker::Camera;
    AddText(station.Session, QStringLiteral("text"));
    SavePage(station.Session);
    PrintCard(station.Session);
    EXPECT_TRUE(station.Printers.Only({QStringLiteral("PaintPicture")}).isEmpty());
    EXPECT_EQ(Texts(station), QStringList({QStringLiteral("Print(\"text\")")}));
}

TEST(PrintFaults, AMissingBackImageIsNoFault)
{
    TestSession station;
    station.WithDatabase();
    BeginLayout(station.Session, QStringLiteral("Card"));
    station.Session.CurrentParams.BackImg1Path =
        station.Session.PathInFolder(QStringLiteral("nowhere.png"));
    AddText(station.Session, QStringLiteral("text"));
    SavePage(station.Session);
    PrintCard(station.Session);
    EXPECT_TRUE(station.Printers.Only({QStringLiteral("PaintPicture")}).isEmpty());
    EXPECT_EQ(Texts(station), QStringList({QStringLiteral("Print(\"text\")")}));
}

TEST(PrintFaults, APrinterThatRefusesEveryStepRaisesNoErrorAndTheNumberRises)
{
    TestSession station;
    station.WithDatabase();
    MakeCard(station.Session);
    station.Printers.Get(QStringLiteral("Card Printer")).Failing = {QString()};
    station.Printers.Operations.clear();
    PrintCard(station.Session);
    EXPECT_TRUE(
        station.Printers.Only({QStringLiteral("Print("), QStringLiteral("EndDoc")}).isEmpty());
    EXPECT_EQ(StoredNumbers(station.Session, QStringLiteral("Card")),
              QStringList({QStringLiteral("2")}));
    EXPECT_EQ(station.Operator.Pointer, std::vector<bool>({true, false}));
}

TEST(PrintFaults, WithNoPrinterInstalledTheRoutineRunsToItsEnd)
{
    TestSession station{QStringList()};
    station.WithDatabase();
    station.Session.CurrentLayoutName = QStringLiteral("Card");
    station.Session.CurrentParams.PageIndex = 1;
    station.Session.CurrentParams.PrinterType = 9;
    station.Session.CurrentParams.PrinterCopies = 1;
    AddNumber(station.Session, 1);
    SavePage(station.Session);
    PrintCard(station.Session);
    EXPECT_TRUE(station.Printers.Operations.isEmpty());
    EXPECT_EQ(StoredNumbers(station.Session, QStringLiteral("Card")),
              QStringList({QStringLiteral("2")}));
    EXPECT_EQ(station.Operator.Pointer, std::vector<bool>({true, false}));
}

TEST(PrintFaults, WithoutADatabaseNothingPrintsAndNothingFails)
{
    TestSession station;
    station.Session.CurrentParams.PrinterCopies = 1;
    station.Session.CurrentParams.PrinterType = 9;
    PrintCard(station.Session);
    EXPECT_FALSE(station.Printers.Operations.contains(QStringLiteral("EndDoc")));
    EXPECT_EQ(station.Operator.Pointer, std::vector<bool>({true, false}));
}

} // namespace
} // namespace vantrel::test
