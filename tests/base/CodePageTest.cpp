#include "base/CodePage.h"
#include "support/Print.h"
#include <gtest/gtest.h>

using namespace vantrel;

TEST(CodePage, EveryByteComesBackAsItWentIn)
{
    QByteArray all;
    for (int code = 0; code < 256; ++code)
        all.append(static_cast<char>(code));
    const QString text = FromCodePage(all);
    EXPECT_EQ(text.size(), 256);
    EXPECT_EQ(ToCodePage(text), all);
    for (int code = 0; code < 256; ++code)
        EXPECT_EQ(text[code], CharacterOfCode(static_cast<unsigned char>(code))) << code;
}

TEST(CodePage, CodesHaveTheirCharacters)
{
    EXPECT_EQ(CharacterOfCode(0x80), QChar(0x20AC));
    EXPECT_EQ(CharacterOfCode(0x9F), QChar(0x0178));
    EXPECT_EQ(CharacterOfCode(0x7F), QChar(0x7F));
    EXPECT_EQ(CharacterOfCode(0xA0), QChar(0xA0));
    EXPECT_EQ(CharacterOfCode(0xFF), QChar(0xFF));
    for (const int undefined : {0x81, 0x8D, 0x8F, 0x90, 0x9D})
        EXPECT_EQ(CharacterOfCode(static_cast<unsigned char>(undefined)), QChar(undefined));
}

TEST(CodePage, WhatItLacksBecomesAQuestionMark)
{
    EXPECT_EQ(ToCodePage(QStringLiteral("a\u0416\u0080b")), QByteArray("a??b"));
    EXPECT_EQ(ToCodePage(QString()), QByteArray());
}
