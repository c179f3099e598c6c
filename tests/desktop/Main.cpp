#include "support/WarningGuard.h"
#include <QApplication>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

/// Warnings of the platform without a display about every window it makes, and about the missing
/// notification area.
class OffscreenRemarks : public ::testing::EmptyTestEventListener
{
    void OnTestStart(const ::testing::TestInfo& /*test*/) override
    {
        vantrel::test::AnnounceWarning(QStringLiteral("This plugin does not support"));
        vantrel::test::AnnounceWarning(QStringLiteral("systemTrayWindowChanged"));
    }
};

} // namespace

// Windows are tested without a display; they still paint and handle presses.
int main(int argc, char** argv)
{
    // This platform cannot drag; the tests of drags name another one.
    qputenv("QT_QPA_PLATFORM",
            qEnvironmentVariable("VANTREL_TEST_PLATFORM", QStringLiteral("offscreen")).toLatin1());
    // Qt's own dialogs keep their state here and not in the files of the user who runs the tests.
    const QTemporaryDir settings;
    qputenv("XDG_CONFIG_HOME", settings.path().toLocal8Bit());
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    ::testing::InitGoogleTest(&argc, argv);
    vantrel::test::InstallWarningGuard();
    ::testing::UnitTest::GetInstance()->listeners().Append(new OffscreenRemarks);
    return RUN_ALL_TESTS();
}
