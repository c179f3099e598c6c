#include "base/FolderSync.h"
#include "support/FailureOf.h"
#include "support/Print.h"
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace vantrel::test {

TEST(FolderSync, AllMissingFoldersAreMade)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a/b/c"));
    MakeFolderDurably(path);
    EXPECT_TRUE(QDir(path).exists());
    MakeFolderDurably(path);
    SyncFolder(path);
}

TEST(FolderSync, AFileInTheWayIsNoFolder)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("a")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(FailureTextOf([&] { MakeFolderDurably(folder.filePath(QStringLiteral("a/b"))); }),
              QStringLiteral("Printer error: %1: Not a directory").arg(file.fileName()));
    EXPECT_EQ(FailureOf([&] { SyncFolder(file.fileName()); }), FailureNumber::PrinterError);
}

TEST(FolderSync, AFolderThatIsNotThereFailsWithTheSystemsReason)
{
    const QTemporaryDir folder;
    const QString none = folder.filePath(QStringLiteral("none"));
    EXPECT_EQ(FailureTextOf([&] { SyncFolder(none); }),
              QStringLiteral("Printer error: %1: No such file or directory").arg(none));
}

} // namespace vantrel::test
