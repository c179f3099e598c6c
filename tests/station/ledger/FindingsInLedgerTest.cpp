#include "StationWithLedger.h"
#include "support/WarningGuard.h"

// What the values of a record bring about on a card, told with the card.

namespace vantrel::test {

namespace {

class FindingsInLedger : public StationWithLedger
{
protected:
    FindingsInLedger()
    {
        Session.Options.DesignTools = true;
        CardObject& first = *Session.Document.Find(Family::lbl_DATA, 1);
        first.Width = 2700;
        first.SetFont({.Name = QStringLiteral("Liberation Sans"), .Size = 5});
    }

    /// Gives the layout a field in the fixed letters of 10 points and saves it.
    CardObject& AddSmallField(const TextAt& place = {.Top = 1000, .Width = 900})
    {
        CardObject& field = AddField(Session, 1, place);
        field.SetFont({.Name = QStringLiteral("Liberation Mono"), .Size = 10});
        return field;
    }
    void Save()
    {
        SavePage(Session);
        LoadFirstPage(Session, Name);
    }
    QString ReasonOf(qlonglong entry) { return Entry(entry).Cards.at(0).Reason; }
    static void AnnounceRemark(const char* remark)
    {
        AnnounceWarning(QStringLiteral("A card of Badge: ") + QLatin1StringView(remark));
    }
};

} // namespace

TEST_F(FindingsInLedger, ANameThatLeavesItsBoxIsToldWithItsCard)
{
    AddSmallField();
    Save();
    ASSERT_TRUE(Arrive("<Ada>"));
    EXPECT_EQ(ReasonOf(1), QString());
    AnnounceRemark("Data Field 1: The text leaves its box");
    ASSERT_TRUE(Arrive("<Bartholomew>"));
    EXPECT_EQ(Entry(2).Cards.at(0).State, LedgerState::Printed);
    EXPECT_TRUE(
        ReasonOf(2).startsWith(QStringLiteral("Data Field 1: The text leaves its box: by")));
}

TEST_F(FindingsInLedger, WithoutTheDesignToolsNothingMoreIsTold)
{
    Session.Options.DesignTools = false;
    AddSmallField();
    Save();
    ASSERT_TRUE(Arrive("<Bartholomew>"));
    EXPECT_EQ(ReasonOf(1), QString());
}

TEST_F(FindingsInLedger, AStaticTextIsLeftToTheCheckOfTheLayout)
{
    AddText(Session, QStringLiteral("Bartholomew Featherstonehaugh"), {.Top = 1000, .Width = 100});
    Save();
    ASSERT_TRUE(Arrive("<Ada>"));
    EXPECT_EQ(ReasonOf(1), QString());
}

TEST_F(FindingsInLedger, ModulesThatAreTooSmallAreTold)
{
    CardObject& field = AddSmallField({.Top = 1000, .Left = 480, .Height = 430, .Width = 430});
    field.SetFont({QStringLiteral("Barcode QR Code"), 10});
    Save();
    ASSERT_TRUE(Arrive("<47>"));
    EXPECT_EQ(ReasonOf(1), QString());
    AnnounceRemark("Data Field 1: The modules of the code are smaller than 0.25 mm: 0.17 mm.");
    ASSERT_TRUE(Arrive("<a text that takes a larger code>"));
    EXPECT_FALSE(ReasonOf(2).isEmpty());
}

TEST_F(FindingsInLedger, CharactersThatATrackMustNotHoldAreTold)
{
    Session.CurrentParams.PrinterType = PrinterTypeCode::Fargo;
    Session.CurrentParams.Track2 = QStringLiteral("DAT1");
    Save();
    ASSERT_TRUE(Arrive("<4711>"));
    EXPECT_EQ(ReasonOf(1), QString());
    AnnounceRemark("Track 2: The track holds characters that the standard forbids there: AD.");
    ASSERT_TRUE(Arrive("<Ada>"));
    EXPECT_FALSE(ReasonOf(2).isEmpty());
}

TEST_F(FindingsInLedger, ACoarsePhotoOfTheRecordIsTold)
{
    Session.Pictures.Folder = Session.ProgramFolder;
    Station.WritePng(QStringLiteral("fine.png"), 200, 200);
    Station.WritePng(QStringLiteral("coarse.png"), 40, 40);
    AddImage(Session, QStringLiteral("{1}.png"), {.Top = 2000, .Height = 1440, .Width = 1440});
    Save();
    ASSERT_TRUE(Arrive("<fine>"));
    EXPECT_EQ(ReasonOf(1), QString());
    AnnounceRemark("Image {1}.png: The picture is too coarse for its size: 40 dots to the inch.");
    ASSERT_TRUE(Arrive("<coarse>"));
    EXPECT_FALSE(ReasonOf(2).isEmpty());
}

TEST_F(FindingsInLedger, WhereNoValuesAreKeptNoneAreTold)
{
    Session.Options.LedgerValues = false;
    Session.CurrentParams.PrinterType = PrinterTypeCode::Fargo;
    Session.CurrentParams.Track2 = QStringLiteral("DAT1");
    Save();
    AnnounceRemark("Track 2: The track holds characters that the standard forbids there.");
    ASSERT_TRUE(Arrive("<Ada>"));
    EXPECT_EQ(
        ReasonOf(1),
        QStringLiteral("Track 2: The track holds characters that the standard forbids there."));
}

} // namespace vantrel::test
