#include "base/UnnamedFile.h"
#include "support/FailureOf.h"
#include "support/Print.h"
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace vantrel::test {

namespace {

class UnnamedFileTest : public ::testing::TestWithParam<UnnamedFile::Kind>
{
protected:
    QString Path(const QString& name) const { return m_folder.filePath(name); }
    QStringList Names() const
    {
        return QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden | QDir::System);
    }
    QByteArray BytesOf(const QString& name) const
    {
        QFile file(Path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QTemporaryDir m_folder;
};

const QByteArray Card(100'000, 'c');

} // namespace

TEST_P(UnnamedFileTest, AFilePutInPlaceIsWholeAndTheOnlyOne)
{
    {
        UnnamedFile file(m_folder.path(), GetParam());
        file.Write(Card);
        EXPECT_FALSE(QFile::exists(Path(QStringLiteral("card"))));
        EXPECT_TRUE(file.PutInPlace(Path(QStringLiteral("card"))));
    }
    EXPECT_EQ(Names(), QStringList(QStringLiteral("card")));
    EXPECT_EQ(BytesOf(QStringLiteral("card")), Card);
}

TEST_P(UnnamedFileTest, AFileThatIsOnTheDiskStaysInvisibleUntilItIsPutInPlace)
{
    UnnamedFile file(m_folder.path(), GetParam());
    file.Write(Card);
    file.Sync();
    EXPECT_FALSE(QFile::exists(Path(QStringLiteral("card"))));
    EXPECT_TRUE(file.PutInPlace(Path(QStringLiteral("card"))));
    EXPECT_EQ(BytesOf(QStringLiteral("card")), Card);
}

TEST_P(UnnamedFileTest, AnAbandonedFileLeavesNothingBehind)
{
    {
        UnnamedFile file(m_folder.path(), GetParam());
        file.Write(Card);
    }
    EXPECT_EQ(Names(), QStringList());
}

TEST_P(UnnamedFileTest, ATakenNameIsNotReplacedAndTheNextOneTakesIt)
{
    QFile taken(Path(QStringLiteral("one")));
    ASSERT_TRUE(taken.open(QIODevice::WriteOnly));
    taken.write("first");
    taken.close();
    UnnamedFile file(m_folder.path(), GetParam());
    file.Write(Card);
    EXPECT_FALSE(file.PutInPlace(taken.fileName()));
    EXPECT_TRUE(file.PutInPlace(Path(QStringLiteral("two"))));
    EXPECT_EQ(BytesOf(QStringLiteral("one")), "first");
    EXPECT_EQ(BytesOf(QStringLiteral("two")), Card);
}

TEST_P(UnnamedFileTest, WhereItCannotBePlacedItFailsAndLeavesNothing)
{
    {
        UnnamedFile file(m_folder.path(), GetParam());
        file.Write(Card);
        EXPECT_EQ(FailureOf([&] { file.PutInPlace(Path(QStringLiteral("none/card"))); }),
                  FailureNumber::PrinterError);
    }
    EXPECT_EQ(Names(), QStringList());
}

TEST_P(UnnamedFileTest, WithoutAFolderItFails)
{
    EXPECT_EQ(FailureOf([&] { UnnamedFile(Path(QStringLiteral("none")), GetParam()); }),
              FailureNumber::PrinterError);
}

INSTANTIATE_TEST_SUITE_P(Kinds, UnnamedFileTest,
                         ::testing::Values(UnnamedFile::Kind::Nameless, UnnamedFile::Kind::Hidden));

} // namespace vantrel::test
