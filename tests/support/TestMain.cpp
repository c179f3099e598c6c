#include "support/WarningGuard.h"
#include <QCoreApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    // The EBT check digit depends on the number format of the machine; the tests expect that of one
    // format.
    qputenv("LC_ALL", "C.UTF-8");
    const QCoreApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    vantrel::test::InstallWarningGuard();
    return RUN_ALL_TESTS();
}
