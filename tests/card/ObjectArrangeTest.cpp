#include "card/ObjectArrange.h"
#include "card/CardDocument.h"
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

/// A card of 3000 by 4000 twips with four texts, named by their places in the stack.
class Arranged : public ::testing::Test
{
protected:
    Arranged()
    {
        Document.Load();
        Document.Width = 3000;
        Document.Height = 4000;
        constexpr float boxes[][4] = {{100, 100, 300, 200},
                                      {900, 500, 500, 300},
                                      {1500, 1300, 100, 100},
                                      {2500, 700, 200, 900}};
        for (const auto& box : boxes) {
            CardObject& object = Document.Add(Family::lbl_TEXT);
            object.SetCaption(QString(QChar(u'A' + object.Index() - 1)));
            object.Left = box[0];
            object.Top = box[1];
            object.Width = box[2];
            object.Height = box[3];
        }
    }
    CardObject& Text(int index) { return *Document.Find(Family::lbl_TEXT, index); }
    void Select(const std::vector<int>& indexes)
    {
        Document.SelectedObject = nullptr;
        Document.AlsoSelected.clear();
        for (const int index : indexes) {
            if (Document.SelectedObject == nullptr)
                Document.SelectedObject = &Text(index);
            else
                Document.AlsoSelected.push_back(&Text(index));
        }
    }
    QString Stack() const
    {
        QString order;
        for (const auto& object : Document.Objects()) {
            if (object->IsContent())
                order += object->Caption();
        }
        return order;
    }
    std::vector<float> Places(float CardObject::*side)
    {
        std::vector<float> places;
        for (int index = 1; index <= 4; ++index)
            places.push_back(Text(index).*side);
        return places;
    }

    CardDocument Document;
};

using PlaceList = std::vector<float>;

TEST_F(Arranged, SeveralObjectsAreSelectedTogether)
{
    EXPECT_TRUE(SelectedObjects(Document).empty());
    Select({3, 1});
    const std::vector<CardObject*> expected{&Text(1), &Text(3)};
    EXPECT_EQ(SelectedObjects(Document), expected);
    EXPECT_TRUE(IsSelected(Document, Text(1)));
    EXPECT_FALSE(IsSelected(Document, Text(2)));
    // Without the one that has the grips nothing is selected.
    Document.SelectedObject = nullptr;
    EXPECT_TRUE(SelectedObjects(Document).empty());
}

TEST_F(Arranged, ADeletedObjectIsNoLongerSelected)
{
    Select({3, 1});
    Document.Remove(Text(1));
    EXPECT_TRUE(Document.AlsoSelected.empty());
}

TEST_F(Arranged, ObjectsMoveTogether)
{
    Select({1, 2});
    MoveObjects(SelectedObjects(Document), -20, 1);
    EXPECT_EQ(Places(&CardObject::Left), (PlaceList{80, 880, 1500, 2500}));
    EXPECT_EQ(Places(&CardObject::Top), (PlaceList{101, 501, 1300, 700}));
}

TEST_F(Arranged, SidesAndMiddlesComeToOneLine)
{
    struct Row
    {
        AlignLine Line;
        float CardObject::*Side;
        PlaceList Expected;
    };
    const Row rows[] = {
        {AlignLine::Left, &CardObject::Left, {100, 100, 100, 2500}},
        {AlignLine::Middle, &CardObject::Left, {700, 600, 800, 2500}},
        {AlignLine::Right, &CardObject::Left, {1300, 1100, 1500, 2500}},
        {AlignLine::Top, &CardObject::Top, {100, 100, 100, 700}},
        {AlignLine::Centre, &CardObject::Top, {650, 600, 700, 700}},
        {AlignLine::Bottom, &CardObject::Top, {1200, 1100, 1300, 700}},
    };
    for (const Row& row : rows) {
        const PlaceList left = Places(&CardObject::Left);
        const PlaceList top = Places(&CardObject::Top);
        AlignObjects(Document, {&Text(1), &Text(2), &Text(3)}, row.Line);
        EXPECT_EQ(Places(row.Side), row.Expected) << static_cast<int>(row.Line);
        for (int index = 1; index <= 4; ++index) {
            Text(index).Left = left[static_cast<std::size_t>(index - 1)];
            Text(index).Top = top[static_cast<std::size_t>(index - 1)];
        }
    }
}

TEST_F(Arranged, ASingleObjectComesToTheLineOfTheCard)
{
    AlignObjects(Document, {&Text(1)}, AlignLine::Right);
    AlignObjects(Document, {&Text(1)}, AlignLine::Centre);
    EXPECT_EQ(Text(1).Left, 2700);
    EXPECT_EQ(Text(1).Top, 1900);
    AlignObjects(Document, {}, AlignLine::Left);
}

TEST_F(Arranged, ThreeObjectsAndMoreGetEqualGaps)
{
    SpreadObjects({&Text(4), &Text(2), &Text(1), &Text(3)}, SpreadAxis::Across);
    // The outermost stay; between 100 and 2700 lie 1100 twips of objects and three gaps of 500.
    EXPECT_EQ(Places(&CardObject::Left), (PlaceList{100, 900, 1900, 2500}));
    SpreadObjects({&Text(1), &Text(2), &Text(3)}, SpreadAxis::Down);
    EXPECT_EQ(Places(&CardObject::Top), (PlaceList{100, 650, 1300, 700}));
    SpreadObjects({&Text(1), &Text(3)}, SpreadAxis::Down);
    EXPECT_EQ(Text(1).Top, 100);
}

TEST_F(Arranged, SelectedObjectsMoveInTheStack)
{
    struct Row
    {
        std::vector<int> Selected;
        StackMove Move;
        const char* Expected;
    };
    const Row rows[] = {
        {{1}, StackMove::ToFront, "BCDA"},    {{1}, StackMove::Up, "BCDA"},
        {{1}, StackMove::Down, "BCAD"},       {{1}, StackMove::ToBack, "ABCD"},
        {{1, 3}, StackMove::Up, "BADC"},      {{1, 3}, StackMove::Up, "BDAC"},
        {{1, 3}, StackMove::Up, "BDAC"},      {{1, 3}, StackMove::Down, "BACD"},
        {{3, 1}, StackMove::ToBack, "ACBD"},  {{1, 3}, StackMove::Down, "ACBD"},
        {{2, 4}, StackMove::ToFront, "ACBD"},
    };
    for (const Row& row : rows) {
        Select(row.Selected);
        RestackSelected(Document, row.Move);
        EXPECT_EQ(Stack(), QLatin1String(row.Expected));
        EXPECT_EQ(Document.SelectedObject, &Text(row.Selected.front()));
    }
    // The hidden templates and the grips stay at the bottom.
    EXPECT_FALSE(Document.Objects().front()->IsContent());
}

} // namespace
} // namespace vantrel::test
