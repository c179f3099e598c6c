#include "base/SecretKey.h"
#include "base/Failure.h"
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace vantrel;

TEST(SecretKey, TheKeyOfAFileStaysTheSame)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("Ledger.key"));
    const QByteArray key = SecretKeyOf(path);
    EXPECT_EQ(key.size(), 64);
    EXPECT_EQ(SecretKeyOf(path), key);
    EXPECT_NE(SecretKeyOf(folder.filePath(QStringLiteral("Other.key"))), key);
}

TEST(SecretKey, OnlyTheOwnerCanReadTheFile)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("Ledger.key"));
    SecretKeyOf(path);
    constexpr QFile::Permissions others =
        QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    EXPECT_EQ(QFile::permissions(path) & others, QFile::Permissions());
}

TEST(SecretKey, AFileWithoutAKeyFails)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("Ledger.key"));
    QFile file(path);
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    file.write("no key");
    file.close();
    EXPECT_THROW(SecretKeyOf(path), Failure);
    EXPECT_THROW(SecretKeyOf(folder.filePath(QStringLiteral("missing/Ledger.key"))), Failure);
}
