#include "base/FileBeneath.h"
#include "base/Failure.h"
#include "support/Print.h"
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <array>
#include <atomic>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace vantrel::test {

namespace {

class FileBeneathTest : public ::testing::TestWithParam<FileBeneath::Way>
{
protected:
    FileBeneathTest()
    {
        EXPECT_TRUE(QDir(m_outer.path()).mkpath(QStringLiteral("photos/staff")));
        Put(QStringLiteral("secret.jpg"), "secret");
        Put(QStringLiteral("photos/anna.jpg"), "anna");
        Put(QStringLiteral("photos/staff/bert.jpg"), "bert");
    }

    void Put(const QString& name, const QByteArray& bytes) const
    {
        QFile file(m_outer.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    void Link(const QString& target, const QString& name) const
    {
        ASSERT_TRUE(QFile::link(target, m_outer.filePath(name)));
    }
    QString Folder() const { return m_outer.filePath(QStringLiteral("photos")); }

    /// @return the file's bytes, or the text of the failure
    QString Opened(const QString& name) const
    {
        try {
            const FileBeneath opened(Folder(), name, GetParam());
            QFile file;
            EXPECT_TRUE(file.open(opened.Descriptor(), QIODevice::ReadOnly));
            return QString::fromUtf8(file.readAll());
        } catch (const Failure& failure) {
            return failure.Text();
        }
    }
    QString Opened(const char* name) const { return Opened(QString::fromUtf8(name)); }

    QTemporaryDir m_outer;
};

QString Text(const char* text)
{
    return QString::fromUtf8(text);
}

} // namespace

TEST_P(FileBeneathTest, FilesOfTheFolderAndOfFoldersBelowItAreOpened)
{
    Put(QStringLiteral("photos/Ünï cödé.jpg"), "name");
    Put(QStringLiteral("photos/..hidden"), "dots");
    EXPECT_EQ(Opened("anna.jpg"), Text("anna"));
    EXPECT_EQ(Opened("staff/bert.jpg"), Text("bert"));
    EXPECT_EQ(Opened("./staff//bert.jpg"), Text("bert"));
    EXPECT_EQ(Opened("Ünï cödé.jpg"), Text("name"));
    EXPECT_EQ(Opened("..hidden"), Text("dots"));
}

TEST_P(FileBeneathTest, AMissingFileIsToldAsMissing)
{
    EXPECT_EQ(Opened("carl.jpg"), Text("\"carl.jpg\" is not in the folder"));
    EXPECT_EQ(Opened("none/carl.jpg"), Text("\"none/carl.jpg\" is not in the folder"));
}

TEST_P(FileBeneathTest, NamesThatLeadOutAreRefused)
{
    EXPECT_EQ(Opened("../secret.jpg"), Text("\"../secret.jpg\" leads out of the folder"));
    EXPECT_EQ(Opened("staff/../anna.jpg"), Text("\"staff/../anna.jpg\" leads out of the folder"));
    EXPECT_EQ(Opened("staff/.."), Text("\"staff/..\" leads out of the folder"));
    const QString whole = Folder() + Text("/anna.jpg");
    EXPECT_EQ(Opened(whole),
              QLatin1Char('"') + whole + Text("\" is no name within the folder, but a whole path"));
    EXPECT_EQ(Opened(""), Text("\"\" is no name of a file"));
    EXPECT_EQ(Opened(Text("anna.jpg") + QChar(QChar::Null) + Text(".txt")),
              QLatin1Char('"') + Text("anna.jpg") + QChar(QChar::Null) +
                  Text(".txt\" has a character that no name has"));
}

TEST_P(FileBeneathTest, LinksAreRefusedWhereverTheyLead)
{
    Link(m_outer.filePath(QStringLiteral("secret.jpg")), QStringLiteral("photos/out.jpg"));
    Link(QStringLiteral("../secret.jpg"), QStringLiteral("photos/up.jpg"));
    Link(QStringLiteral("anna.jpg"), QStringLiteral("photos/in.jpg"));
    Link(QStringLiteral(".."), QStringLiteral("photos/outer"));
    Link(QStringLiteral("loop.jpg"), QStringLiteral("photos/loop.jpg"));
    for (const char* name : {"out.jpg", "up.jpg", "in.jpg", "outer/secret.jpg", "loop.jpg"})
        EXPECT_EQ(Opened(name), QLatin1Char('"') + Text(name) + Text("\" leads over a link"));
}

TEST_P(FileBeneathTest, TheFolderItselfMayBeReachedByALink)
{
    Link(Folder(), QStringLiteral("alias"));
    const FileBeneath file(m_outer.filePath(QStringLiteral("alias")), Text("anna.jpg"), GetParam());
    EXPECT_GE(file.Descriptor(), 0);
}

TEST_P(FileBeneathTest, WhatIsNoFileIsRefusedAtOnce)
{
    ASSERT_EQ(::mkfifo(QFile::encodeName(Folder() + Text("/pipe")).constData(), 0600), 0);
    EXPECT_EQ(Opened("pipe"), Text("\"pipe\" is no file"));
    EXPECT_EQ(Opened("staff"), Text("\"staff\" is no file"));
    EXPECT_EQ(Opened("."), Text("\".\" is no file"));
    EXPECT_EQ(Opened("anna.jpg/x"), Text("\"anna.jpg/x\" cannot be opened: Not a directory"));
}

TEST_P(FileBeneathTest, ANameOfAnyLengthIsRefusedWithAShortMessage)
{
    for (const qsizetype length : {300, 5000, 64 << 20}) {
        const QString told = Opened(QString(length, QLatin1Char('x')));
        EXPECT_TRUE(told.endsWith(Text("cannot be opened: File name too long"))) << length;
        EXPECT_LT(told.size(), 300);
    }
}

TEST_P(FileBeneathTest, AFolderThatIsNotThereIsTold)
{
    try {
        const FileBeneath file(m_outer.filePath(QStringLiteral("none")), Text("a"), GetParam());
        ADD_FAILURE();
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.Text(), Text("The folder cannot be opened: ") +
                                      m_outer.filePath(QStringLiteral("none")) +
                                      Text(": No such file or directory"));
    }
}

TEST_P(FileBeneathTest, ALinkPutInPlaceOfAFolderMeanwhileLeadsNowhere)
{
    Put(QStringLiteral("bert.jpg"), "secret");
    const QByteArray folder = QFile::encodeName(Folder() + Text("/staff"));
    const QByteArray away = QFile::encodeName(Folder() + Text("/away"));
    std::atomic<bool> ends = false;
    // Takes the folder away and puts a link that leads out in its place, again and again.
    std::thread attacker([&] {
        while (!ends) {
            ::rename(folder.constData(), away.constData());
            if (::symlink("..", folder.constData()) == 0)
                ::unlink(folder.constData());
            ::rename(away.constData(), folder.constData());
        }
    });
    bool isOut = false;
    for (int i = 0; i < 3000 && !isOut; ++i)
        isOut = Opened("staff/bert.jpg") == Text("secret");
    ends = true;
    attacker.join();
    EXPECT_FALSE(isOut);
    EXPECT_EQ(Opened("staff/bert.jpg"), Text("bert"));
}

INSTANTIATE_TEST_SUITE_P(EachWay, FileBeneathTest,
                         ::testing::Values(FileBeneath::Way::AtOnce, FileBeneath::Way::StepByStep),
                         [](const auto& way) {
                             return way.param == FileBeneath::Way::AtOnce ? "AtOnce" : "StepByStep";
                         });

} // namespace vantrel::test
