#include "station/batch/RowPictures.h"
#include "BatchStation.h"
#include "station/layout/StoreStatements.h"
#include "store/Recordset.h"
#include <QFile>
#include <QTemporaryDir>

namespace vantrel::test {

namespace {

class RowPictures : public BatchStation
{
protected:
    RowPictures() { WithSecondPage(); }

    /// The paths told of where page 2 has an image of that path.
    QStringList ToldOf(const QString& path, const PictureSource& source)
    {
        BeginPage(Session, 2);
        AddImage(Session, QString());
        SavePage(Session);
        // Saving forgets the path of a file that is not there.
        Recordset rows(Session.LayoutDb);
        rows.Open(ObjectsOfPage(Name, 2), CursorLock::Optimistic);
        rows.SetValue(QStringLiteral("C_ImagePath"), path);
        rows.Update();
        rows.Close();
        return PathsWithoutValue(Session.LayoutDb, PlanOf(Target), source);
    }

    QTemporaryDir Photos;
    const PictureSource Source{.Folder = Photos.path(), .Columns = {QStringLiteral("number")}};
};

} // namespace

TEST_F(RowPictures, ANameThatIsNoColumnIsTold)
{
    const QString misspelt = QStringLiteral("{nomber}.jpg");
    EXPECT_EQ(ToldOf(misspelt, Source), QStringList(misspelt));
}

TEST_F(RowPictures, ValuesColumnsAndPathsWithoutBracesAreNotTold)
{
    for (const char* path : {"{number}.jpg", "{1}.jpg", "{x}/{7}.jpg", "missing.jpg", "}a{.jpg"})
        EXPECT_EQ(ToldOf(QString::fromLatin1(path), Source), QStringList()) << path;
}

TEST_F(RowPictures, AFileThatIsThereIsNotTold)
{
    const QString path = Photos.filePath(QStringLiteral("a{b}.jpg"));
    EXPECT_EQ(ToldOf(path, Source), QStringList(path));
    ASSERT_TRUE(QFile(path).open(QIODevice::WriteOnly));
    EXPECT_EQ(ToldOf(path, Source), QStringList());
}

TEST_F(RowPictures, WithoutAFolderNothingIsTold)
{
    EXPECT_EQ(ToldOf(QStringLiteral("{nomber}.jpg"), {}), QStringList());
}

} // namespace vantrel::test
