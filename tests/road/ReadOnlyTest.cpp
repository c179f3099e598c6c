#include "road/StationFolder.h"
#include "road/StationProcess.h"
#include "station/session/Settings.h"
#include "support/Events.h"
#include <QDir>
#include <QFile>
#include <csignal>
#include <gtest/gtest.h>
#include <linux/capability.h>
#include <sys/prctl.h>

// A program folder in which the station may read and not write.

namespace vantrel::test {
namespace {

constexpr QFile::Permissions ReadFile = QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther;
constexpr QFile::Permissions ReadFolder =
    ReadFile | QFile::ExeOwner | QFile::ExeGroup | QFile::ExeOther;

/// Root may write in spite of the mode; without these capabilities it may not, like any other user.
void ObeyModes()
{
    ::prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE, 0, 0, 0);
    ::prctl(PR_CAPBSET_DROP, CAP_DAC_READ_SEARCH, 0, 0, 0);
}

QByteArray Content(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
    return file.readAll();
}

class ReadOnly : public ::testing::Test
{
protected:
    ReadOnly() : m_port(Folder.WithCapture())
    {
        Folder.SetStatus("Visible", QStringLiteral("False"));
        m_files = {SettingsPath(Folder.Session.ProgramFolder),
                   SessionStatusPath(Folder.Session.ProgramFolder)};
        for (const QString& file : m_files) {
            m_contents.append(Content(file));
            EXPECT_TRUE(QFile::setPermissions(file, ReadFile));
        }
    }
    ~ReadOnly() override
    {
        // A folder that nobody may write to cannot be removed either.
        QFile::setPermissions(Folder.Session.ProgramFolder, ReadFolder | QFile::WriteOwner);
    }

    void LockFolder() const
    {
        EXPECT_TRUE(QDir().mkpath(Folder.Session.PathInFolder(QStringLiteral("Printed"))));
        EXPECT_TRUE(QFile::setPermissions(Folder.Session.ProgramFolder, ReadFolder));
    }
    /// The station starts, prints, writes its settings in vain when it ends, and ends in order.
    void ExpectToPrintAndEnd() const
    {
        StationProcess station(Folder.Session.ProgramFolder, {.BeforeProgram = ObeyModes});
        ASSERT_TRUE(station.WaitUntilItListens(m_port));
        SendRecord(m_port, "<Anna+7>");
        EXPECT_EQ(Folder.TextOfCard(1), QStringLiteral("Anna 7"));
        SendRecord(m_port, "<Bert+8>");
        EXPECT_EQ(Folder.TextOfCard(2), QStringLiteral("Bert 8"));
        station.SendSignal(SIGTERM);
        EXPECT_EQ(station.ExitCode(), 0);
        for (qsizetype file = 0; file < m_files.size(); ++file)
            EXPECT_EQ(Content(m_files[file]), m_contents[file]);
    }

    StationFolder Folder;
    int m_port;

private:
    QStringList m_files;
    QList<QByteArray> m_contents;
};

TEST_F(ReadOnly, SettingsFilesDelayNoCard)
{
    ExpectToPrintAndEnd();
}

TEST_F(ReadOnly, ASettingsFolderDelaysNoCard)
{
    // The store's own files stay while a session has it open, as this one has.
    LockFolder();
    ExpectToPrintAndEnd();
}

TEST_F(ReadOnly, AFolderWithoutAStoreInUseEndsNoStation)
{
    Folder.Session.LayoutDb.Close();
    LockFolder();
    StationProcess station(Folder.Session.ProgramFolder, {.BeforeProgram = ObeyModes});
    ASSERT_TRUE(station.WaitUntilItListens(m_port));
    SendRecord(m_port, "<Anna+7>");
    // The station handles the signal after the record.
    station.SendSignal(SIGTERM);
    EXPECT_EQ(station.ExitCode(), 0);
}

} // namespace
} // namespace vantrel::test
