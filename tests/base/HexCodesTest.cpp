#include "base/HexCodes.h"
#include "base/CodePage.h"
#include "support/Print.h"
#include <gtest/gtest.h>

using namespace vantrel;

TEST(HexCodes, EveryCodeFrom1To255IsDecoded)
{
    for (int code = 1; code <= 255; ++code) {
        const QString written = QStringLiteral("[%1]").arg(QString::number(code, 16).toUpper());
        EXPECT_EQ(DecodeHexCodes(QLatin1Char('x') + written + written),
                  QLatin1Char('x') + QString(2, CharacterOfCode(static_cast<unsigned char>(code))))
            << code;
    }
}

TEST(HexCodes, NamesOfControlCharactersAreDecoded)
{
    EXPECT_EQ(DecodeHexCodes(QStringLiteral("[D][A][2][1B]")), QStringLiteral("\r\n\x02\x1B"));
}

TEST(HexCodes, OtherSpellingsAreLeftAsTheyAre)
{
    for (const char* text :
         {"", "[1b]", "[0D]", "[0]", "[100]", "[]", "[G]", "[ D]", "[D", "D]", "]D[", "AB"})
        EXPECT_EQ(DecodeHexCodes(QString::fromLatin1(text)), QString::fromLatin1(text));
}

TEST(HexCodes, ACharacterMadeEarlyTakesPartInALaterCode)
{
    EXPECT_EQ(DecodeHexCodes(QStringLiteral("[5B]61]")), QStringLiteral("a"));
    EXPECT_EQ(DecodeHexCodes(QStringLiteral("[61[5D]")), QStringLiteral("a"));
    EXPECT_EQ(DecodeHexCodes(QStringLiteral("[[36]1]")), QStringLiteral("a"));
}

TEST(HexCodes, ACharacterMadeLateTakesPartInNoEarlierCode)
{
    EXPECT_EQ(DecodeHexCodes(QStringLiteral("[5B]41]")), QStringLiteral("[41]"));
    EXPECT_EQ(DecodeHexCodes(QStringLiteral("[5B]5B]")), QStringLiteral("[5B]"));
}
