#include "card/Grips.h"
#include "station/commands/InsertCommands.h"
#include "station/commands/ObjectCommands.h"
#include "station/imaging/BackImage.h"
#include "station/imaging/ChooseImage.h"
#include "station/layout/DesignSteps.h"
#include "station/layout/FieldApplication.h"
#include "support/Layouts.h"
#include "support/PageText.h"
#include <gtest/gtest.h>
#include <map>
#include <random>

namespace vantrel::test {
namespace {

constexpr unsigned Seed = 20261122;
constexpr int Commands = 4000;

/// A designer who does anything, and what the page was after each step.
class AnyDesigner : public ::testing::Test
{
protected:
    AnyDesigner()
    {
        Station.WithDatabase();
        Session.Options.DesignTools = true;
        BeginLayout(Session, QStringLiteral("Badge"));
        SetRecord(Session, {QStringLiteral("Anna"), QStringLiteral("Berg"), QStringLiteral("7")});
        NoteDesign(Session);
        Pages.push_back(PageText(Session));
    }

    int Below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(Dice); }

    /// Selects any object of the page. @return null for an empty page
    CardObject* SelectAny()
    {
        std::vector<CardObject*> content;
        for (const auto& object : Session.Document.Objects()) {
            if (object->IsContent())
                content.push_back(object.get());
        }
        if (content.empty())
            return nullptr;
        CardObject* object = content[static_cast<std::size_t>(Below(int(content.size())))];
        Session.Document.SelectedObject = object;
        Session.Document.SelectedIndex = object->Index();
        Session.Document.SelectedFamily = FamilyName(object->Family());
        AdjustHandles(Session.Document, *object);
        return object;
    }

    void Insert()
    {
        constexpr void (*inserts[])(vantrel::Session&) = {InsertDataField, InsertText, InsertImage,
                                                          InsertCameraImage, InsertAutoNumber};
        inserts[Below(5)](Session);
    }

    void ChangeLooks(CardObject& object)
    {
        switch (Below(6)) {
        case 0:
            Station.Operator.Colors = {Below(0xFFFFFF)};
            AdjustTextColor(Session);
            break;
        case 1:
            Station.Operator.Fonts = {{.Size = 6.0 + Below(40), .Bold = Below(2) == 1}};
            AdjustFont(Session);
            break;
        case 2:
            Below(2) == 1 ? AlignRight(Session) : AlignCenter(Session);
            break;
        case 3:
            Below(2) == 1 ? ToggleMod10(Session) : ToggleCodabar(Session);
            break;
        case 4:
            if (object.Family() == Family::lbl_DATA)
                ChooseDataField(Session, object.DataField == QStringLiteral("2") ? 3 : 2);
            break;
        default:
            if (object.Family() == Family::lbl_TEXT) {
                Station.Operator.Inputs = {QStringLiteral("Text %1").arg(Below(50))};
                AdjustText(Session);
            }
        }
    }

    void ChangeParams()
    {
        switch (Below(4)) {
        case 0:
            SetBackImage(Session, Picture);
            break;
        case 1:
            ClearBackImages(Session);
            break;
        case 2:
            Session.CurrentParams.Track1 = QStringLiteral("~DAT%1~").arg(Below(5));
            break;
        default:
            Session.CurrentParams.PrinterCopies = std::int16_t(1 + Below(9));
        }
    }

    void DoAnything()
    {
        CardObject* object = SelectAny();
        const int what = Below(20);
        if (object == nullptr || what < 5) {
            Insert();
        } else if (what < 9) {
            object->Left = float(Below(4000));
            object->Top = float(Below(2000));
        } else if (what < 11) {
            Below(2) == 1 ? IncreaseSize(Session) : DecreaseSize(Session);
        } else if (what < 15) {
            ChangeLooks(*object);
        } else if (what == 15 && object->IsImage()) {
            ChooseImage(Session.Document, Picture);
        } else if (what == 16) {
            object->Tag = object->IsLabel() ? QString(QChar(u'a' + Below(26))) : object->Tag;
        } else if (what == 17 && Below(8) == 0) {
            Station.Operator.Answers = {true};
            DeleteAllFields(Session);
        } else if (what == 18) {
            ChangeParams();
        } else {
            Station.Operator.Answers = {true};
            DeleteSelectedObject(Session);
        }
    }

    void DoOne()
    {
        DoAnything();
        NoteDesign(Session);
        const QString page = PageText(Session);
        if (page == Pages[Taken])
            return;
        Pages.resize(++Taken);
        Pages.push_back(page);
        if (Taken > DesignHistory::MostSteps) {
            Pages.erase(Pages.begin());
            --Taken;
        }
    }

    void Walk(int steps, bool back)
    {
        for (int step = 0; step < steps; ++step) {
            const bool can = back ? Taken > 0 : Taken + 1 < Pages.size();
            ASSERT_EQ(back ? CanUndoDesign(Session) : CanRedoDesign(Session), can);
            if (!can)
                return;
            back ? UndoDesign(Session) : RedoDesign(Session);
            Taken += back ? -1 : 1;
            ASSERT_EQ(PageText(Session), Pages[Taken]);
        }
    }

    TestSession Station;
    vantrel::Session& Session = Station.Session;
    const QString Picture = Station.WritePng(QStringLiteral("photo.png"), 40, 30);
    std::mt19937 Dice{Seed};
    std::vector<QString> Pages;
    std::size_t Taken = 0;
};

TEST_F(AnyDesigner, EveryStepGoesBackToTheVeryPageAndForthAgain)
{
    for (int command = 0; command < Commands; ++command) {
        DoOne();
        if (Below(12) == 0)
            Walk(1 + Below(20), true);
        if (Below(20) == 0)
            Walk(1 + Below(20), false);
        if (HasFatalFailure())
            FAIL() << "after command " << command;
    }
    const std::size_t all = Pages.size();
    ASSERT_GT(all, 100U);
    Walk(int(all), true);
    EXPECT_EQ(Taken, 0U);
    Walk(int(all), false);
    EXPECT_EQ(Taken, all - 1);
}

TEST_F(AnyDesigner, NumbersNeverGoBackWhateverIsTakenBack)
{
    std::map<qulonglong, double> shown;
    double highest = 0;
    int cameBack = 0;
    const auto numbers = [&] {
        std::vector<CardObject*> found;
        for (int index = 1; index <= Session.Document.HighestIndex(Family::lbl_AUTO); ++index) {
            if (CardObject* number = Session.Document.Find(Family::lbl_AUTO, index))
                found.push_back(number);
        }
        return found;
    };
    for (int command = 0; command < Commands; ++command) {
        NoteDesign(Session);
        DoAnything();
        NoteDesign(Session);
        // A card prints.
        for (CardObject* number : numbers()) {
            number->DataField = QString::number(++highest);
            shown[number->DesignKey] = highest;
        }
        const auto before = numbers().size();
        if (Below(3) == 0)
            Below(3) == 0 ? RedoDesign(Session) : UndoDesign(Session);
        cameBack += numbers().size() > before ? 1 : 0;
        for (const CardObject* number : numbers())
            ASSERT_GE(number->DataField.toDouble(), shown[number->DesignKey]) << command;
    }
    EXPECT_GT(cameBack, 20);
}

} // namespace
} // namespace vantrel::test
