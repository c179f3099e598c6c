#include "station/imaging/Workspace.h"
#include "base/Profile.h"
#include "station/imaging/ChooseImage.h"
#include "station/session/Settings.h"
#include "support/Layouts.h"
#include <QFile>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

QString StoredBackground(const Session& session)
{
    return ReadProfileValue(SettingsPath(session.ProgramFolder), SessionSection(session),
                            QStringLiteral("Background"), QStringLiteral("(absent)"));
}

double ColorInMemory(const Session& session)
{
    const auto* number = std::get_if<double>(&session.Settings.Background);
    return number != nullptr ? *number : -1;
}

TEST(Workspace, AColourIsShownAndStoredAtOnce)
{
    TestSession station;
    int told = 0;
    QObject::connect(&station.Session.Face, &StationFace::BackgroundChanged, [&] { ++told; });
    SetWorkspaceColor(station.Session, 0x336699);
    EXPECT_EQ(ColorInMemory(station.Session), 0x336699);
    EXPECT_EQ(StoredBackground(station.Session), QString::number(0x336699));
    EXPECT_EQ(WorkspaceColor(station.Session.Settings), 0x336699);
    EXPECT_EQ(told, 1);
}

TEST(Workspace, BlackIsStoredAs0AndShownAs1)
{
    TestSession station;
    SetWorkspaceColor(station.Session, ColorBlack);
    EXPECT_EQ(ColorInMemory(station.Session), 1);
    EXPECT_EQ(StoredBackground(station.Session), QStringLiteral("0"));
}

TEST(Workspace, APictureIsShownAndItsPathStored)
{
    TestSession station;
    SetWorkspaceColor(station.Session, 5);
    const QString path = station.WritePng(QStringLiteral("sea.png"), 8, 6);
    SetWorkspacePicture(station.Session, path);
    const auto* picture = std::get_if<Picture>(&station.Session.Settings.Background);
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->Image().width(), 8);
    EXPECT_EQ(StoredBackground(station.Session), path);
    SetWorkspaceColor(station.Session, 7);
    EXPECT_EQ(StoredBackground(station.Session), QStringLiteral("7"));
}

TEST(Workspace, AFileThatIsNoPictureLeavesTheEarlierOne)
{
    TestSession station;
    SetWorkspacePicture(station.Session, station.WritePng(QStringLiteral("sea.png"), 8, 6));
    const QString text = station.Session.PathInFolder(QStringLiteral("text.txt"));
    QFile file(text);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("no picture");
    file.close();
    SetWorkspacePicture(station.Session, text);
    ASSERT_NE(std::get_if<Picture>(&station.Session.Settings.Background), nullptr);
    EXPECT_EQ(StoredBackground(station.Session), text);
}

TEST(Workspace, ACancelChangesNothing)
{
    TestSession station;
    SetWorkspaceColor(station.Session, 7);
    SetWorkspacePicture(station.Session, QString());
    EXPECT_EQ(ColorInMemory(station.Session), 7);
    EXPECT_EQ(StoredBackground(station.Session), QStringLiteral("7"));
}

TEST(Workspace, TheDefaultIsStoredAs0)
{
    TestSession station;
    SetWorkspacePicture(station.Session, station.WritePng(QStringLiteral("sea.png"), 8, 6));
    ResetWorkspace(station.Session);
    EXPECT_EQ(ColorInMemory(station.Session), 0);
    EXPECT_EQ(StoredBackground(station.Session), QStringLiteral("0"));
}

/// A station with a page on which an image object is selected.
class ImageStation : public TestSession
{
public:
    ImageStation()
    {
        WithDatabase();
        BeginLayout(Session, QStringLiteral("Badge"));
        AddImage(Session, WritePng(QStringLiteral("old.png"), 10, 10), {300, 400, 1500, 1000});
        Select(QStringLiteral("img_LXV"), 1);
    }
    void Select(const QString& family, int index)
    {
        CardDocument& document = Session.Document;
        document.SelectedFamily = family;
        document.SelectedIndex = index;
        document.SelectedObject = &Image();
    }
    CardObject& Image() { return *Session.Document.Find(Family::img_LXV, 1); }
};

TEST(ChooseImage, TakesThePicturesSizeInHundredthsOfAMillimetre)
{
    ImageStation station;
    QImage image(300, 150, QImage::Format_RGB32);
    image.setDotsPerMeterX(10000);
    image.setDotsPerMeterY(10000);
    image.fill(Qt::red);
    const QString path = station.Session.PathInFolder(QStringLiteral("three by 1\u00bd cm.png"));
    ASSERT_TRUE(image.save(path));
    ChooseImage(station.Session.Document, path);
    // 3 cm are 1701 twips; the object becomes 3000 twips wide only by number.
    EXPECT_EQ(station.Image().Width, 3000);
    EXPECT_EQ(station.Image().Height, 1500);
    EXPECT_EQ(station.Image().Tag, path);
    EXPECT_EQ(station.Image().Picture.Image().width(), 300);
    EXPECT_EQ(station.Image().Left, 400);
    EXPECT_TRUE(station.Session.Document.HandlesShown);
}

TEST(ChooseImage, ChangesNothingWithoutAnImageObjectSelected)
{
    ImageStation station;
    const QString tag = station.Image().Tag;
    const QString path = station.WritePng(QStringLiteral("new.png"), 20, 20);
    station.Select(QStringLiteral("lbl_TEXT"), 1);
    ChooseImage(station.Session.Document, path);
    station.Select(QString(), 0);
    ChooseImage(station.Session.Document, path);
    station.Select(QStringLiteral("img_LXV"), 9);
    ChooseImage(station.Session.Document, path);
    EXPECT_EQ(station.Image().Tag, tag);
    EXPECT_EQ(station.Image().Width, 1000);
}

TEST(ChooseImage, AFileThatIsMissingOrNoPictureChangesNothing)
{
    ImageStation station;
    const QString tag = station.Image().Tag;
    ChooseImage(station.Session.Document, QString());
    ChooseImage(station.Session.Document, station.Session.PathInFolder(QStringLiteral("gone.png")));
    ChooseImage(station.Session.Document,
                station.Session.PathInFolder(QStringLiteral("Vantrel.dat")));
    EXPECT_EQ(station.Image().Tag, tag);
    EXPECT_EQ(station.Image().Width, 1000);
}

} // namespace
} // namespace vantrel::test
