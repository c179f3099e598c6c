#include "support/WarningGuard.h"
#include <QApplication>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

/// What the platform without a display says of every window it makes, and of the notification area
/// that it lacks.
class OffscreenRemarks : public ::testing::EmptyTestEventListener
{
    void OnTestStart(const ::testing::TestInfo& /*test*/) override
    {
        vantrel::test::AnnounceWarning(QStringLiteral("This plugin does not support"));
        vantrel::test::AnnounceWarning(QStringLiteral("systemTrayWindowChanged"));
    }
};

} // namespace

// Windows are tested without a display: they paint and take presses all the same.
int main(int argc, char** argv)
{
    // This platform drags nothing; a test of drags names another.
    qputenv("QT_QPA_PLATFORM",
            qEnvironmentVariable("VANTREL_TEST_PLATFORM", QStringLiteral("offscreen")).toLatin1());
    // Qt's own dialogs keep their state here, not where whoever runs the tests has his.
    const QTemporaryDir settings;
    qputenv("XDG_CONFIG_HOME", settings.path().toLocal8Bit());
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    ::testing::InitGoogleTest(&argc, argv);
    vantrel::test::InstallWarningGuard();
    ::testing::UnitTest::GetInstance()->listeners().Append(new OffscreenRemarks);
    return RUN_ALL_TESTS();
}
