#include "station/layout/LayoutParams.h"
#include "StoredRows.h"
#include "base/Failure.h"
#include "station/layout/DocumentForm.h"
#include "support/Layouts.h"
#include <gtest/gtest.h>

namespace vantrel::test {

namespace {

class LayoutParams : public ::testing::Test
{
protected:
    LayoutParams() : Test({QStringLiteral("First"), QStringLiteral("Second")})
    {
        Test.WithDatabase();
        BeginLayout(Session, QStringLiteral("Staff"));
        EnsureDocument(Session);
    }

    QList<StoredRow> Rows() const
    {
        return StoredRows(Session, QStringLiteral("SELECT * FROM LayoutParams ORDER BY ID"));
    }

    /// Everything a page stores, each unlike its default.
    void FillParams()
    {
        LayoutParamsRecord& params = Session.CurrentParams;
        params.PrinterDevice = QStringLiteral("Second");
        params.PrinterOrientation = OrientationLandscape;
        params.PrinterType = PrinterTypeCode::Plain;
        params.PrinterCopies = 3;
        params.Encode = true;
        params.Track1 = QStringLiteral("DAT1");
        params.Track2 = QStringLiteral("DAT2");
        params.Track3 = QStringLiteral("DAT3");
        params.BackImg1Path = Test.WritePng(QStringLiteral("back.png"), 2, 2);
        params.BackImg2Path = QStringLiteral("");
        params.AutoSpool = true;
    }

    TestSession Test;
    vantrel::Session& Session = Test.Session;
};

TEST_F(LayoutParams, SaveWritesThePagesRowAndNotTheFilter)
{
    FillParams();
    Session.CurrentParams.Filter = QStringLiteral("-");
    SaveLayoutParams(Session.LayoutDb, Session.CurrentLayoutName, Session.CurrentParams);
    const QList<StoredRow> rows = Rows();
    ASSERT_EQ(rows.size(), 1);
    const StoredRow& row = rows[0];
    EXPECT_EQ(row[QStringLiteral("LayoutName")], QStringLiteral("Staff"));
    EXPECT_EQ(row[QStringLiteral("PageIndex")], 1);
    EXPECT_TRUE(row[QStringLiteral("Encode")].toBool());
    EXPECT_EQ(row[QStringLiteral("PrinterDevice")], QStringLiteral("Second"));
    EXPECT_EQ(row[QStringLiteral("PrinterOrientation")], 2);
    EXPECT_EQ(row[QStringLiteral("PrinterType")], 9);
    EXPECT_EQ(row[QStringLiteral("Track1")], QStringLiteral("DAT1"));
    EXPECT_EQ(row[QStringLiteral("Track2")], QStringLiteral("DAT2"));
    EXPECT_EQ(row[QStringLiteral("Track3")], QStringLiteral("DAT3"));
    EXPECT_EQ(row[QStringLiteral("BackImg1")], Session.CurrentParams.BackImg1Path);
    EXPECT_EQ(row[QStringLiteral("BackImg2")].toString(), QString());
    EXPECT_EQ(row[QStringLiteral("PrinterCopies")], 3);
    EXPECT_TRUE(row[QStringLiteral("AutoSpool")].toBool());
    EXPECT_TRUE(row[QStringLiteral("Filter")].isNull());
}

TEST_F(LayoutParams, SaveChangesTheRowThatIsThere)
{
    SaveLayoutParams(Session.LayoutDb, Session.CurrentLayoutName, Session.CurrentParams);
    Execute(Session, QStringLiteral("UPDATE LayoutParams SET Filter = 'x'"));
    Session.CurrentParams.PrinterCopies = 7;
    SaveLayoutParams(Session.LayoutDb, Session.CurrentLayoutName, Session.CurrentParams);
    Session.CurrentParams.PageIndex = 2;
    SaveLayoutParams(Session.LayoutDb, Session.CurrentLayoutName, Session.CurrentParams);
    const QList<StoredRow> rows = Rows();
    ASSERT_EQ(rows.size(), 2);
    EXPECT_EQ(rows[0][QStringLiteral("PrinterCopies")], 7);
    EXPECT_EQ(rows[0][QStringLiteral("Filter")], QStringLiteral("x"));
    EXPECT_EQ(rows[1][QStringLiteral("PageIndex")], 2);
}

TEST_F(LayoutParams, SaveMakesTheRowOfAPageWithoutObjects)
{
    SaveLayoutParams(Session.LayoutDb, Session.CurrentLayoutName, Session.CurrentParams);
    EXPECT_EQ(Rows().size(), 1);
    EXPECT_TRUE(StoredPage(Session, QStringLiteral("Staff"), 1).isEmpty());
}

TEST_F(LayoutParams, LoadReadsWhatSaveWrote)
{
    FillParams();
    SaveLayoutParams(Session.LayoutDb, Session.CurrentLayoutName, Session.CurrentParams);
    const LayoutParamsRecord saved = Session.CurrentParams;
    LayoutParamsRecord& params = Session.CurrentParams;
    params = LayoutParamsRecord();
    params.PageIndex = 1;
    LoadLayoutParams(Session);
    EXPECT_EQ(params.PrinterDevice, saved.PrinterDevice);
    EXPECT_EQ(params.PrinterOrientation, saved.PrinterOrientation);
    EXPECT_EQ(params.PrinterType, saved.PrinterType);
    EXPECT_EQ(params.PrinterCopies, saved.PrinterCopies);
    EXPECT_EQ(params.Encode, saved.Encode);
    EXPECT_EQ(params.Track1, saved.Track1);
    EXPECT_EQ(params.Track2, saved.Track2);
    EXPECT_EQ(params.Track3, saved.Track3);
    EXPECT_EQ(params.BackImg1Path, saved.BackImg1Path);
    EXPECT_TRUE(params.BackImg1Picture.HasHandle());
    EXPECT_EQ(params.AutoSpool, saved.AutoSpool);
    EXPECT_EQ(params.PageCount, 0);
}

TEST_F(LayoutParams, APageWithoutARowInheritsWhatIsNotReset)
{
    FillParams();
    LayoutParamsRecord& params = Session.CurrentParams;
    params.Filter = QStringLiteral("-");
    params.BackImg1Picture = LoadPicture(params.BackImg1Path);
    params.BackImg2Path = QStringLiteral("second.png");
    params.BackImg2Picture = params.BackImg1Picture;
    params.PageIndex = 4;
    params.PageCount = 9;
    LoadLayoutParams(Session);
    EXPECT_FALSE(params.Encode);
    EXPECT_TRUE(params.Track1.isEmpty() && params.Track2.isEmpty() && params.Track3.isEmpty());
    EXPECT_FALSE(params.BackImg1Picture.HasHandle());
    EXPECT_FALSE(params.BackImg2Picture.HasHandle());
    EXPECT_TRUE(params.BackImg1Path.isEmpty());
    EXPECT_TRUE(params.BackImg2Path.isEmpty());
    EXPECT_EQ(params.PrinterDevice, QStringLiteral("Second"));
    EXPECT_EQ(params.PrinterOrientation, OrientationLandscape);
    EXPECT_EQ(params.PrinterType, PrinterTypeCode::Plain);
    EXPECT_EQ(params.PrinterCopies, 3);
    EXPECT_EQ(params.Filter, QStringLiteral("-"));
    EXPECT_TRUE(params.AutoSpool);
    EXPECT_EQ(params.PageCount, 0);
}

TEST_F(LayoutParams, NullsReadAsZeroCopiesEmptyFilterAndFalse)
{
    Execute(Session,
            QStringLiteral("INSERT INTO LayoutParams (LayoutName, PageIndex) VALUES ('Staff', 1)"));
    LayoutParamsRecord& params = Session.CurrentParams;
    FillParams();
    params.Filter = QStringLiteral("-");
    LoadLayoutParams(Session);
    EXPECT_EQ(params.PrinterCopies, 0);
    EXPECT_TRUE(params.Filter.isEmpty());
    EXPECT_FALSE(params.Encode);
    EXPECT_FALSE(params.AutoSpool);
    EXPECT_TRUE(params.Track1.isEmpty());
    EXPECT_TRUE(params.BackImg1Path.isEmpty());
    // Values that are applied unconverted stay unchanged where the row has a null.
    EXPECT_EQ(params.PrinterDevice, QStringLiteral("Second"));
    EXPECT_EQ(params.PrinterOrientation, OrientationLandscape);
    EXPECT_EQ(params.PrinterType, PrinterTypeCode::Plain);
}

TEST_F(LayoutParams, AFilterIsReadAndTheSecondBackImageIsNot)
{
    Execute(Session, QStringLiteral("INSERT INTO LayoutParams (LayoutName, PageIndex, Filter, "
                                    "BackImg2) VALUES ('Staff', 1, '-.', 'two.png')"));
    LoadLayoutParams(Session);
    EXPECT_EQ(Session.CurrentParams.Filter, QStringLiteral("-."));
    EXPECT_TRUE(Session.CurrentParams.BackImg2Path.isEmpty());
    SaveLayoutParams(Session.LayoutDb, Session.CurrentLayoutName, Session.CurrentParams);
    EXPECT_EQ(Rows()[0][QStringLiteral("BackImg2")].toString(), QString());
}

TEST_F(LayoutParams, ABackImageThatIsGoneKeepsItsPath)
{
    const QString gone = Session.PathInFolder(QStringLiteral("gone.png"));
    Session.CurrentParams.BackImg1Path = gone;
    SaveLayoutParams(Session.LayoutDb, Session.CurrentLayoutName, Session.CurrentParams);
    LoadLayoutParams(Session);
    EXPECT_FALSE(Session.CurrentParams.BackImg1Picture.HasHandle());
    EXPECT_EQ(Session.CurrentParams.BackImg1Path, gone);
    SaveLayoutParams(Session.LayoutDb, Session.CurrentLayoutName, Session.CurrentParams);
    EXPECT_EQ(Rows()[0][QStringLiteral("BackImg1")], gone);
}

TEST_F(LayoutParams, OfTwoRowsForOnePageTheFirstCounts)
{
    Execute(Session,
            QStringLiteral("INSERT INTO LayoutParams (LayoutName, PageIndex, PrinterCopies)"
                           " VALUES ('Staff', 1, 4), ('Staff', 1, 5)"));
    LoadLayoutParams(Session);
    EXPECT_EQ(Session.CurrentParams.PrinterCopies, 4);
}

TEST_F(LayoutParams, PagesAreCountedNotTheirHighestNumber)
{
    Execute(Session, QStringLiteral("INSERT INTO Controls (LayoutName, Page) VALUES ('Staff', 2), "
                                    "('Staff', 7), ('Staff', 7), ('Other', 3)"));
    EXPECT_EQ(CountLayoutPages(Session.LayoutDb, Session.CurrentLayoutName), 2);
    Session.CurrentParams.PageCount = 8;
    LoadLayoutParams(Session);
    EXPECT_EQ(Session.CurrentParams.PageCount, 2);
}

struct PrinterCase
{
    std::int32_t PrinterType;
    bool SetsOrientation;
    bool SetsSize;
};

/// `SetSize` sets the orientation once more for most kinds that come to it here.
constexpr PrinterCase PrinterCases[] = {
    {0, false, false},  {1, true, true},    {2, false, true},  {3, false, false}, {4, true, true},
    {5, true, true},    {6, false, false},  {7, false, false}, {8, false, false}, {9, false, false},
    {10, false, false}, {11, false, false}, {12, false, false}};

TEST_F(LayoutParams, ThePagesPrinterBecomesCurrentAndIsSetUpByItsKind)
{
    static_assert(std::size(PrinterCases) == 13);
    for (const PrinterCase& row : PrinterCases) {
        FillParams();
        Session.CurrentParams.PrinterType = row.PrinterType;
        SaveLayoutParams(Session.LayoutDb, Session.CurrentLayoutName, Session.CurrentParams);
        Test.Printers.Operations.clear();
        Session.Document.Width = 77;
        LoadLayoutParams(Session);
        QStringList expected{QStringLiteral("Printer = \"Second\"")};
        if (row.SetsOrientation)
            expected += QStringLiteral("Orientation = 2");
        if (row.SetsSize)
            expected += QStringLiteral("Orientation = 2");
        EXPECT_EQ(Test.Printers.Operations, expected) << row.PrinterType;
        EXPECT_EQ(Session.Document.Width, row.SetsSize ? 4860.0F : 77.0F) << row.PrinterType;
        EXPECT_EQ(Session.Printers.Current().DeviceName(), QStringLiteral("Second"));
    }
}

TEST_F(LayoutParams, AnUnknownPrinterLeavesTheCurrentOne)
{
    Session.CurrentParams.PrinterDevice = QStringLiteral("second");
    Session.CurrentParams.PrinterType = PrinterTypeCode::Fargo;
    LoadLayoutParams(Session);
    EXPECT_TRUE(Test.Printers.Operations.isEmpty());
    EXPECT_EQ(Session.Printers.Current().DeviceName(), QStringLiteral("First"));
}

TEST_F(LayoutParams, APrinterThatRefusesIsPassedOver)
{
    FillParams();
    Session.CurrentParams.PrinterType = PrinterTypeCode::Fargo;
    SaveLayoutParams(Session.LayoutDb, Session.CurrentLayoutName, Session.CurrentParams);
    Test.Printers.Get(QStringLiteral("Second")).Failing = {QStringLiteral("Orientation")};
    LoadLayoutParams(Session);
    EXPECT_EQ(Session.Printers.Current().DeviceName(), QStringLiteral("Second"));
    EXPECT_EQ(Session.CurrentParams.Track1, QStringLiteral("DAT1"));
}

TEST_F(LayoutParams, WithTheStoreClosedLoadResetsAndSaveFails)
{
    FillParams();
    Session.LayoutDb.Close();
    Session.CurrentParams.PageCount = 6;
    LoadLayoutParams(Session);
    EXPECT_FALSE(Session.CurrentParams.Encode);
    EXPECT_EQ(Session.CurrentParams.PageCount, 6);
    EXPECT_EQ(Session.CurrentParams.PrinterCopies, 3);
    EXPECT_THROW(
        SaveLayoutParams(Session.LayoutDb, Session.CurrentLayoutName, Session.CurrentParams),
        Failure);
    EXPECT_THROW(CountLayoutPages(Session.LayoutDb, Session.CurrentLayoutName), Failure);
}

TEST_F(LayoutParams, ANameWithAnApostropheMakesAnInvalidStatement)
{
    Session.CurrentLayoutName = QStringLiteral("O'Brien");
    EXPECT_THROW(
        SaveLayoutParams(Session.LayoutDb, Session.CurrentLayoutName, Session.CurrentParams),
        Failure);
    EXPECT_TRUE(Rows().isEmpty());
}

} // namespace

} // namespace vantrel::test
