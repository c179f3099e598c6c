#include "base/HarmlessText.h"
#include <gtest/gtest.h>

namespace vantrel::test {

TEST(HarmlessText, LeavesTextOfAnyScriptAsItIs)
{
    const QString text = QString::fromUtf8("Zoë \"Ελένη\" 花子, \U0001F600 + - * שלום");
    EXPECT_EQ(HarmlessText(text), text);
    EXPECT_EQ(HarmlessText(QStringView()), QString());
}

TEST(HarmlessText, ShowsEveryControlCharacterByAVisibleOne)
{
    EXPECT_EQ(HarmlessText(QStringLiteral("a\x1B[2Jb\r\n\tc\a\x7F")),
              QString::fromUtf8("a␛[2Jb␍␊␉c␇␡"));
    constexpr ushort space = 0x20;
    constexpr ushort del = 0x7F;
    constexpr ushort endOfControls = 0xA0;
    for (ushort code = 0; code < endOfControls; ++code) {
        const bool isControl = code < space || code >= del;
        EXPECT_EQ(HarmlessText(QString(QChar(code))) != QString(QChar(code)), isControl) << code;
    }
}

TEST(HarmlessText, LetsNothingTurnTheDirectionOrBeginALine)
{
    for (const QChar code : QStringLiteral(u"\u202A\u202E\u2066\u2069\u2028\u2029"))
        EXPECT_EQ(HarmlessText(QString(code)), QString(QChar(QChar::ReplacementCharacter)));
}

} // namespace vantrel::test
