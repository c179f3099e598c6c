#include "station/session/UnattendedOperator.h"
#include "support/Print.h"
#include <QTimer>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

TEST(UnattendedOperator, WritesEachBoxOnOneLineAndAnswersAtOnce)
{
    UnattendedOperator nobody;
    testing::internal::CaptureStderr();
    EXPECT_TRUE(nobody.ShowAppMessage(QStringLiteral("Saved."), QStringLiteral("Document Saved."),
                                      AppMessageButtons::OkOnly));
    EXPECT_FALSE(nobody.ShowAppMessage(QStringLiteral("Sure\r\nnow?"), QStringLiteral(" Really?"),
                                       AppMessageButtons::YesNo));
    EXPECT_FALSE(nobody.AskYesNo(QStringLiteral("     Take Picture Now?           "),
                                 QStringLiteral("Take Picture")));
    nobody.MessageBox(QStringLiteral("Type mismatch"), QStringLiteral("13"), BoxIcon::Critical);
    EXPECT_EQ(nobody.AskYesNoCancel(QStringLiteral("Delete?"), QStringLiteral("Really Delete?")),
              BoxAnswer::No);
    EXPECT_EQ(nobody.InputBox(QStringLiteral("Name"), QStringLiteral("New Layout"), QString()),
              QString());
    EXPECT_EQ(nobody.AskFont({}), std::nullopt);
    EXPECT_EQ(nobody.AskColor(ColorBlack), std::nullopt);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Document Saved.: Saved.\n"
                                                      "Really?: Sure now?\n"
                                                      "Take Picture: Take Picture Now?\n"
                                                      "13: Type mismatch\n"
                                                      "Really Delete?: Delete?\n"
                                                      "New Layout: Name\n");
}

TEST(UnattendedOperator, LetsWaitingEventsRun)
{
    UnattendedOperator nobody;
    bool delivered = false;
    QTimer::singleShot(0, [&] { delivered = true; });
    nobody.LetEventsRun();
    EXPECT_TRUE(delivered);
}

} // namespace
} // namespace vantrel::test
