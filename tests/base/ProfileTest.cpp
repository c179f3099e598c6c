#include "base/Profile.h"
#include "support/Print.h"
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using namespace vantrel;

namespace {

class Profile : public ::testing::Test
{
protected:
    QString Path() const { return m_folder.filePath(QStringLiteral("Test.ini")); }

    void Put(const QByteArray& bytes) const
    {
        QFile file(Path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }

    QByteArray Bytes() const
    {
        QFile file(Path());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }

    QString Read(const char* section, const char* key) const
    {
        return ReadProfileValue(Path(), QLatin1StringView(section), QLatin1StringView(key),
                                QStringLiteral("absent"));
    }

    bool Write(const char* section, const char* key, const QString& value) const
    {
        return WriteProfileValue(Path(), QLatin1StringView(section), QLatin1StringView(key), value);
    }

private:
    QTemporaryDir m_folder;
};

void WriteMany(const QString& path, const QString& section, int count)
{
    for (int i = 0; i < count; ++i)
        WriteProfileValue(path, section, QStringLiteral("Key%1").arg(i), QString::number(i));
}

} // namespace

TEST_F(Profile, AMissingFileSectionOrKeyIsAbsent)
{
    EXPECT_EQ(Read("A", "x"), QStringLiteral("absent"));
    Put("[A]\nx=1\n");
    EXPECT_EQ(Read("A", "y"), QStringLiteral("absent"));
    EXPECT_EQ(Read("B", "x"), QStringLiteral("absent"));
    EXPECT_EQ(Read("A", "x"), QStringLiteral("1"));
}

TEST_F(Profile, AnEmptyValueIsPresent)
{
    Put("[A]\nx=\n");
    EXPECT_EQ(Read("A", "x"), QString());
}

TEST_F(Profile, NamesAreCaseBlind)
{
    Put("[Session 1]\r\nDataStart=<\r\nCaf\xE9=1\r\n");
    EXPECT_EQ(Read("SESSION 1", "datastart"), QStringLiteral("<"));
    EXPECT_EQ(ReadProfileValue(Path(), QStringLiteral("session 1"), QStringLiteral("CAF\u00C9"),
                               QString()),
              QStringLiteral("1"));
}

TEST_F(Profile, BothLineEndsAndAnUnendedLineAreRead)
{
    Put("[A]\r\nx=1\r\n[B]\ny=2\n[C]\nz=3");
    EXPECT_EQ(Read("A", "x"), QStringLiteral("1"));
    EXPECT_EQ(Read("B", "y"), QStringLiteral("2"));
    EXPECT_EQ(Read("C", "z"), QStringLiteral("3"));
}

TEST_F(Profile, BlanksAroundNamesAndValuesAreTrimmed)
{
    Put("  [ A ]  \n  x \t=  a b \t\n");
    EXPECT_EQ(Read("A", "x"), QStringLiteral("a b"));
}

TEST_F(Profile, OnePairOfEqualQuotesIsRemoved)
{
    Put("[A]\na=\" b \"\nb='c'\nc=\"d'\nd=\"\ne=\"\"f\"\"\nf=\"\"\n");
    EXPECT_EQ(Read("A", "a"), QStringLiteral(" b "));
    EXPECT_EQ(Read("A", "b"), QStringLiteral("c"));
    EXPECT_EQ(Read("A", "c"), QStringLiteral("\"d'"));
    EXPECT_EQ(Read("A", "d"), QStringLiteral("\""));
    EXPECT_EQ(Read("A", "e"), QStringLiteral("\"f\""));
    EXPECT_EQ(Read("A", "f"), QString());
}

TEST_F(Profile, CommentsAreNoKeys)
{
    Put("[A]\n;x=1\n ; x=2\nx=3;4\n");
    EXPECT_EQ(Read("A", "x"), QStringLiteral("3;4"));
    EXPECT_EQ(Read("A", ";x"), QStringLiteral("absent"));
}

TEST_F(Profile, AValueIsCutTo255Characters)
{
    ASSERT_TRUE(Write("A", "x", QString(300, QLatin1Char('v'))));
    EXPECT_EQ(Read("A", "x"), QString(255, QLatin1Char('v')));
    ASSERT_TRUE(Write("A", "x", QString(255, QLatin1Char('w'))));
    EXPECT_EQ(Read("A", "x"), QString(255, QLatin1Char('w')));
}

TEST_F(Profile, ACarriageReturnStaysInsideItsValue)
{
    const QString value = QStringLiteral("a\rb=c\r");
    ASSERT_TRUE(Write("A", "x", value));
    ASSERT_TRUE(Write("A", "y", QStringLiteral("2")));
    EXPECT_EQ(Bytes(), QByteArray("[A]\r\nx=a\rb=c\r\r\ny=2\r\n"));
    EXPECT_EQ(Read("A", "x"), value);
    EXPECT_EQ(Read("A", "y"), QStringLiteral("2"));
}

TEST_F(Profile, AFreshFileIsWrittenWithItsSection)
{
    ASSERT_TRUE(Write("Session 1", "Port", QStringLiteral("10001")));
    EXPECT_EQ(Bytes(), QByteArray("[Session 1]\r\nPort=10001\r\n"));
}

TEST_F(Profile, AWriteKeepsAllOtherBytes)
{
    Put("; head\n\n[A]\n x = old \n;note\n\n[B]\r\njunk\r\ny=\"q\"\r\n");
    ASSERT_TRUE(Write("a", "X", QStringLiteral("new")));
    EXPECT_EQ(Bytes(), QByteArray("; head\n\n[A]\nx=new\r\n;note\n\n[B]\r\njunk\r\ny=\"q\"\r\n"));
}

TEST_F(Profile, ANewKeyComesBehindTheLastLineOfItsSection)
{
    Put("[A]\r\nx=1\r\n\r\n[B]\r\ny=2");
    ASSERT_TRUE(Write("A", "z", QStringLiteral("3")));
    ASSERT_TRUE(Write("B", "z", QStringLiteral("4")));
    ASSERT_TRUE(Write("C", "z", QStringLiteral("5")));
    EXPECT_EQ(Bytes(), QByteArray("[A]\r\nx=1\r\nz=3\r\n\r\n[B]\r\ny=2\r\nz=4\r\n"
                                  "[C]\r\nz=5\r\n"));
}

TEST_F(Profile, TheFirstOfRepeatedKeysCounts)
{
    Put("[A]\nx=1\nx=2\n[B]\n[A]\nx=3\ny=4\n");
    EXPECT_EQ(Read("A", "x"), QStringLiteral("1"));
    EXPECT_EQ(Read("A", "y"), QStringLiteral("4"));
    ASSERT_TRUE(Write("A", "x", QStringLiteral("9")));
    ASSERT_TRUE(Write("A", "z", QStringLiteral("8")));
    EXPECT_EQ(Bytes(), QByteArray("[A]\nx=9\r\nx=2\nz=8\r\n[B]\n[A]\nx=3\ny=4\n"));
}

TEST_F(Profile, TheValidLinesOfABrokenFileAreRead)
{
    QByteArray bytes = QByteArrayLiteral("x=above\n=nameless\n\0\x01\xFF[\n[A\nx=1\n\0\0=\0\n"
                                         "[B]]\ny=\x80\0z\n[");
    Put(bytes);
    EXPECT_EQ(Read("A", "x"), QStringLiteral("1"));
    EXPECT_EQ(Read("B", "y"), QStringLiteral("\u20AC") + QChar(0) + QLatin1Char('z'));
    EXPECT_EQ(Read("", "x"), QStringLiteral("absent"));
    ASSERT_TRUE(Write("A", "x", QStringLiteral("2")));
    EXPECT_EQ(Bytes(), bytes.replace("x=1\n", "x=2\r\n"));
}

TEST_F(Profile, AnEditorsMarkDoesNotHideTheFirstSection)
{
    Put("\xEF\xBB\xBF[A]\r\nx=1\r\n");
    EXPECT_EQ(Read("A", "x"), QStringLiteral("1"));
}

TEST_F(Profile, AFileThatCannotBeWrittenStaysAsItWas)
{
    ASSERT_TRUE(QDir().mkpath(Path()));
    EXPECT_FALSE(Write("A", "x", QStringLiteral("1")));
    EXPECT_EQ(Read("A", "x"), QStringLiteral("absent"));
    EXPECT_FALSE(WriteProfileValue(Path() + QStringLiteral("/none/Test.ini"), QStringLiteral("A"),
                                   QStringLiteral("x"), QStringLiteral("1")));
}

TEST_F(Profile, AWriteLeavesNothingBesideTheFile)
{
    ASSERT_TRUE(Write("A", "x", QStringLiteral("1")));
    const QDir folder = QFileInfo(Path()).dir();
    EXPECT_EQ(folder.entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden),
              QStringList{QStringLiteral("Test.ini")});
}

TEST_F(Profile, ProcessesWritingTheirSectionsLoseNothing)
{
    constexpr int processes = 3;
    constexpr int keys = 25;
    std::vector<pid_t> children;
    for (int i = 0; i < processes; ++i) {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            WriteMany(Path(), QStringLiteral("Session %1").arg(i), keys);
            _exit(0);
        }
        children.push_back(child);
    }
    for (const pid_t child : children) {
        int status = -1;
        EXPECT_EQ(waitpid(child, &status, 0), child);
        EXPECT_EQ(status, 0);
    }
    for (int i = 0; i < processes; ++i) {
        for (int k = 0; k < keys; ++k)
            EXPECT_EQ(ReadProfileValue(Path(), QStringLiteral("Session %1").arg(i),
                                       QStringLiteral("Key%1").arg(k), QString()),
                      QString::number(k));
    }
}

TEST_F(Profile, SectionsAreToldOnceInTheirOrder)
{
    EXPECT_TRUE(ProfileSections(Path()).isEmpty());
    Put("a=1\n[Session 2]\nActive=True\n\n[ Other ]\nx=1\n[Session 2]\ny=1\n[Session 1]\n");
    EXPECT_EQ(ProfileSections(Path()),
              QStringList({QStringLiteral("Session 2"), QStringLiteral("Other"),
                           QStringLiteral("Session 1")}));
}

TEST_F(Profile, AReaderNeverSeesHalfAFile)
{
    ASSERT_TRUE(Write("First", "x", QString(200, QLatin1Char('a'))));
    ASSERT_TRUE(Write("Last", "y", QStringLiteral("whole")));
    std::thread writer([this] {
        for (int i = 0; i < 60; ++i)
            Write("First", "x", QString(i % 2 == 0 ? 1 : 200, QLatin1Char('b')));
    });
    for (int i = 0; i < 2000; ++i)
        EXPECT_EQ(Read("Last", "y"), QStringLiteral("whole"));
    writer.join();
}
