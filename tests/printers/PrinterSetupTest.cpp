#include "printers/PrinterSetup.h"
#include "base/Profile.h"
#include "support/Print.h"
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

class PrinterSetupTest : public ::testing::Test
{
protected:
    void Set(const char* key, const char* value)
    {
        ASSERT_TRUE(WriteProfileValue(m_path, QStringLiteral("Printer Cards"),
                                      QLatin1StringView(key), QLatin1StringView(value)));
    }

    QTemporaryDir m_folder;
    const QString m_path = m_folder.filePath(SettingsFileName);
    PrinterSetupFile File{m_path, QStringLiteral("Cards")};
};

void ExpectNothing(const PrinterSetup& setup)
{
    for (const QString& option : setup.StripeOptions)
        EXPECT_EQ(option, QString());
    EXPECT_EQ(setup.OffsetX, 0);
    EXPECT_EQ(setup.OffsetY, 0);
    EXPECT_EQ(setup.DotsPerInch, 0);
}

} // namespace

TEST_F(PrinterSetupTest, WithoutAFileOrASectionNothingIsSet)
{
    PrinterSetupFile none;
    ExpectNothing(none.Current());
    ExpectNothing(File.Current());
    ASSERT_TRUE(WriteProfileValue(m_path, QStringLiteral("Printer Other"),
                                  QStringLiteral("OffsetX"), QStringLiteral("5")));
    ExpectNothing(File.Current());
}

TEST_F(PrinterSetupTest, ReadsItsSectionInAnyCase)
{
    Set("stripechannel", "OPTION");
    Set("StripeOption1", "one");
    Set("StripeOption2", "two.b");
    Set("StripeOption3", "three_c");
    Set("OffsetX", "-120");
    Set("OffsetY", " 45 ");
    const PrinterSetup setup = File.Current();
    EXPECT_EQ(setup.StripeOptions[0], QStringLiteral("one"));
    EXPECT_EQ(setup.StripeOptions[1], QStringLiteral("two.b"));
    EXPECT_EQ(setup.StripeOptions[2], QStringLiteral("three_c"));
    EXPECT_EQ(setup.OffsetX, -120);
    EXPECT_EQ(setup.OffsetY, 45);
}

TEST_F(PrinterSetupTest, DotsPerInchCountIfAPrinterMayHaveThem)
{
    for (const auto& [written, dots] :
         std::initializer_list<std::pair<const char*, int>>{{"300", 300},
                                                            {" 600 ", 600},
                                                            {"100", 100},
                                                            {"4800", 4800},
                                                            {"99", 0},
                                                            {"4801", 0},
                                                            {"-300", 0},
                                                            {"0", 0},
                                                            {"fine", 0},
                                                            {"300dpi", 0},
                                                            {"99999999999", 0},
                                                            {"", 0}}) {
        Set("DotsPerInch", written);
        PrinterSetupFile file(m_path, QStringLiteral("Cards"));
        EXPECT_EQ(file.Current().DotsPerInch, dots) << written;
    }
}

TEST_F(PrinterSetupTest, OptionsCountOnlyWithTheirChannel)
{
    Set("StripeOption1", "one");
    for (const char* channel : {"", "page", "options", "True"}) {
        Set("StripeChannel", channel);
        EXPECT_EQ(File.Current().StripeOptions[0], QString()) << channel;
    }
    Set("StripeChannel", "option");
    EXPECT_EQ(File.Current().StripeOptions[0], QStringLiteral("one"));
}

TEST_F(PrinterSetupTest, AnOffsetThatIsNoNumberCountsAsZero)
{
    Set("OffsetY", "7");
    for (const char* offset : {"", "x", "1e", "99999999999"}) {
        Set("OffsetX", offset);
        EXPECT_EQ(File.Current().OffsetX, 0) << offset;
        EXPECT_EQ(File.Current().OffsetY, 7) << offset;
    }
}

TEST_F(PrinterSetupTest, FollowsChangesOfTheFile)
{
    Set("OffsetX", "10");
    EXPECT_EQ(File.Current().OffsetX, 10);
    Set("OffsetX", "20");
    EXPECT_EQ(File.Current().OffsetX, 20);
    ASSERT_TRUE(QFile::remove(m_path));
    ExpectNothing(File.Current());
}

} // namespace vantrel::test
