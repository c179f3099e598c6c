#include "support/WarningGuard.h"
#include <QCoreApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    // A check digit goes by the number format of the machine; what is expected here is that of one.
    qputenv("LC_ALL", "C.UTF-8");
    const QCoreApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    vantrel::test::InstallWarningGuard();
    return RUN_ALL_TESTS();
}
