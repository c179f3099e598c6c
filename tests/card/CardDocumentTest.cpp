#include "card/CardDocument.h"
#include "support/Print.h"
#include <QObject>
#include <gtest/gtest.h>

namespace vantrel {

namespace {

constexpr Family ContentFamilies[] = {Family::lbl_DATA, Family::lbl_TEXT, Family::lbl_AUTO,
                                      Family::img_LXV, Family::img_CAM};

std::size_t CountContent(const CardDocument& document)
{
    return static_cast<std::size_t>(
        std::count_if(document.Objects().begin(), document.Objects().end(),
                      [](const auto& object) { return object->IsContent(); }));
}

TEST(CardDocument, LoadMakesAHiddenTemplateOfEachFamily)
{
    CardDocument document;
    EXPECT_FALSE(document.IsLoaded());
    document.Load();
    EXPECT_TRUE(document.IsLoaded());
    for (const Family family : ContentFamilies) {
        const CardObject* element = document.Find(family, 0);
        ASSERT_NE(element, nullptr);
        EXPECT_EQ(element->Tag, Marker::NotIncluded);
        EXPECT_EQ(element->LinkItem, element->IsLabel() ? QString(Marker::NotIncluded) : QString());
        EXPECT_FALSE(element->Visible);
        EXPECT_EQ(document.HighestIndex(family), 0);
    }
    EXPECT_EQ(CountContent(document), 0U);
}

TEST(CardDocument, LoadMakesEightGripsThatAreNoContent)
{
    CardDocument document;
    document.Load();
    EXPECT_EQ(document.HighestIndex(Family::picHandle), 7);
    for (int grip = 0; grip < 8; ++grip) {
        const CardObject* element = document.Find(Family::picHandle, grip);
        ASSERT_NE(element, nullptr);
        EXPECT_EQ(element->Tag, Marker::NotIncluded);
        EXPECT_EQ(element->LinkItem, Marker::NotIncluded);
        EXPECT_FALSE(element->Visible);
    }
    EXPECT_EQ(document.Objects().size(), 13U);
}

TEST(CardDocument, LoadingTwiceMakesNothingTwice)
{
    CardDocument document;
    document.Load();
    document.Load();
    EXPECT_EQ(document.Objects().size(), 13U);
}

TEST(CardDocument, NextIndexIsTheHighestOfTheFamilyPlusOne)
{
    CardDocument document;
    document.Load();
    EXPECT_EQ(document.Add(Family::lbl_TEXT).Index(), 1);
    EXPECT_EQ(document.Add(Family::lbl_TEXT).Index(), 2);
    EXPECT_EQ(document.Add(Family::lbl_DATA).Index(), 1);
    EXPECT_EQ(document.HighestIndex(Family::lbl_TEXT), 2);
}

TEST(CardDocument, DeletingLeavesAGapUnlessTheHighestWent)
{
    CardDocument document;
    document.Load();
    CardObject& first = document.Add(Family::lbl_TEXT);
    CardObject& second = document.Add(Family::lbl_TEXT);
    CardObject& third = document.Add(Family::lbl_TEXT);
    document.Remove(second);
    EXPECT_EQ(document.Find(Family::lbl_TEXT, 2), nullptr);
    EXPECT_EQ(document.HighestIndex(Family::lbl_TEXT), 3);
    document.Remove(third);
    EXPECT_EQ(document.HighestIndex(Family::lbl_TEXT), 1);
    EXPECT_EQ(document.Find(Family::lbl_TEXT, 1), &first);
    EXPECT_EQ(document.Add(Family::lbl_TEXT).Index(), 2);
}

TEST(CardDocument, FindGivesNothingOutOfRange)
{
    CardDocument document;
    EXPECT_EQ(document.Find(Family::lbl_TEXT, 0), nullptr);
    EXPECT_EQ(document.HighestIndex(Family::lbl_TEXT), 0);
    document.Load();
    EXPECT_EQ(document.Find(Family::lbl_TEXT, -1), nullptr);
    EXPECT_EQ(document.Find(Family::lbl_TEXT, 1), nullptr);
}

TEST(CardDocument, ObjectsStandInCreationOrderAcrossFamilies)
{
    CardDocument document;
    document.Load();
    const CardObject* expected[] = {&document.Add(Family::img_LXV), &document.Add(Family::lbl_TEXT),
                                    &document.Add(Family::img_LXV),
                                    &document.Add(Family::lbl_DATA)};
    const auto& objects = document.Objects();
    for (std::size_t i = 0; i < std::size(expected); ++i)
        EXPECT_EQ(objects[objects.size() - std::size(expected) + i].get(), expected[i]);
}

TEST(CardDocument, ClearingRemovesContentAndResetsTheSelection)
{
    CardDocument document;
    document.Load();
    document.SelectedObject = &document.Add(Family::lbl_DATA);
    document.Add(Family::img_CAM);
    document.RemoveContent();
    EXPECT_EQ(document.SelectedObject, nullptr);
    EXPECT_EQ(document.Objects().size(), 13U);
    EXPECT_EQ(document.HighestIndex(Family::lbl_DATA), 0);
    EXPECT_EQ(document.HighestIndex(Family::img_CAM), 0);
}

TEST(CardDocument, AnObjectTaggedNotIncludedIsNotCleared)
{
    CardDocument document;
    document.Load();
    document.Add(Family::lbl_DATA);
    CardObject& kept = document.Add(Family::lbl_DATA);
    kept.Tag = Marker::NotIncluded;
    document.RemoveContent();
    EXPECT_EQ(document.Find(Family::lbl_DATA, 2), &kept);
    EXPECT_EQ(document.Find(Family::lbl_DATA, 1), nullptr);
    EXPECT_EQ(document.Add(Family::lbl_DATA).Index(), 3);
}

TEST(CardDocument, RemovingTheSelectedObjectResetsTheSelectionAndAnotherKeepsIt)
{
    CardDocument document;
    document.Load();
    CardObject& other = document.Add(Family::lbl_TEXT);
    CardObject& selected = document.Add(Family::lbl_TEXT);
    document.SelectedObject = &selected;
    document.Remove(other);
    EXPECT_EQ(document.SelectedObject, &selected);
    document.Remove(selected);
    EXPECT_EQ(document.SelectedObject, nullptr);
}

TEST(CardDocument, UnloadForgetsWhatTheFormHeld)
{
    CardDocument document;
    document.Load();
    document.SelectedObject = &document.Add(Family::lbl_TEXT);
    document.DefaultFont = Font();
    document.Tag = QStringLiteral("back.png");
    document.CamHeight = 5;
    document.CamWidth = 6;
    document.HandlesShown = true;
    document.Show();
    document.Unload();
    EXPECT_FALSE(document.IsLoaded());
    EXPECT_FALSE(document.IsShown());
    EXPECT_TRUE(document.Objects().empty());
    EXPECT_EQ(document.SelectedObject, nullptr);
    EXPECT_FALSE(document.DefaultFont.has_value());
    EXPECT_TRUE(document.Tag.isEmpty());
    EXPECT_EQ(document.CamHeight, 0);
    EXPECT_EQ(document.CamWidth, 0);
    EXPECT_FALSE(document.HandlesShown);
    document.Load();
    EXPECT_EQ(document.Objects().size(), 13U);
    EXPECT_EQ(document.Add(Family::lbl_TEXT).Index(), 1);
}

TEST(CardDocument, SignalsWhenItIsShownHiddenAndChanged)
{
    CardDocument document;
    QStringList told;
    QObject::connect(&document, &CardDocument::Shown, [&] { told += QStringLiteral("shown"); });
    QObject::connect(&document, &CardDocument::Hidden, [&] { told += QStringLiteral("hidden"); });
    QObject::connect(&document, &CardDocument::Changed, [&] { told += QStringLiteral("changed"); });
    document.Show();
    document.Show();
    document.Refresh();
    document.Hide();
    document.Hide();
    EXPECT_EQ(told, (QStringList{QStringLiteral("shown"), QStringLiteral("changed"),
                                 QStringLiteral("hidden")}));
}

} // namespace

} // namespace vantrel
