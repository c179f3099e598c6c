#include "ports/Framing.h"
#include "support/Print.h"
#include <gtest/gtest.h>

using namespace vantrel;

namespace {

QString Filtered(const char* value, bool Filters::*flag)
{
    Filters filters;
    filters.*flag = true;
    return FilterValue(QString::fromLatin1(value), filters);
}

constexpr bool Filters::*everyFlag[] = {&Filters::Cr,    &Filters::Lf,    &Filters::Tab,
                                        &Filters::Space, &Filters::Esc,   &Filters::NewPage,
                                        &Filters::Null,  &Filters::CtrlC, &Filters::CtrlBreak};

} // namespace

TEST(Filters, EachActsOnItsOwnCharacterOnly)
{
    struct Row
    {
        bool Filters::*Flag;
        const char* After;
    };
    const char* const value = "a\rb\nc\td  e\x1B"
                              "f\fg";
    const Row rows[] = {
        {&Filters::Cr, "ab\nc\td  e\x1B"
                       "f\fg"},
        {&Filters::Lf, "a\rbc\td  e\x1B"
                       "f\fg"},
        {&Filters::Tab, "a\rb\nc d  e\x1B"
                        "f\fg"},
        {&Filters::Space, "a\rb\nc\td e\x1B"
                          "f\fg"},
        {&Filters::Esc, "a\rb\nc\td  ef\fg"},
        {&Filters::NewPage, "a\rb\nc\td  e\x1B"
                            "fg"},
        {&Filters::Null, value},
        {&Filters::CtrlC, value},
        {&Filters::CtrlBreak, value},
    };
    ASSERT_EQ(std::size(rows), std::size(everyFlag));
    for (const Row& row : rows)
        EXPECT_EQ(Filtered(value, row.Flag), QString::fromLatin1(row.After));
}

TEST(Filters, ThreeFiltersOfTheDialogHaveNoEffect)
{
    const QString value = QStringLiteral("a") + QChar(0) + QChar(3) + QStringLiteral("b");
    Filters filters;
    filters.Null = filters.CtrlC = filters.CtrlBreak = true;
    EXPECT_EQ(FilterValue(value, filters), value);
}

TEST(Filters, PairsOfBlanksAreReplacedInOnePass)
{
    EXPECT_EQ(Filtered("a   b", &Filters::Space), QStringLiteral("a  b"));
    EXPECT_EQ(Filtered("a    b", &Filters::Space), QStringLiteral("a  b"));
    EXPECT_EQ(Filtered("a b", &Filters::Space), QStringLiteral("a b"));
}

TEST(Filters, ATabBecomesABlankBeforePairsAreLookedFor)
{
    Filters filters;
    filters.Tab = filters.Space = true;
    EXPECT_EQ(FilterValue(QStringLiteral("a\t b"), filters), QStringLiteral("a b"));
}

TEST(Filters, WhatIsRemovedAfterThePairsLeavesItsBlanks)
{
    Filters filters;
    filters.Space = filters.Esc = true;
    EXPECT_EQ(FilterValue(QStringLiteral("a \x1B"
                                         " b"),
                          filters),
              QStringLiteral("a  b"));
}

TEST(Filters, BlanksAtTheEndsAreAlwaysTrimmedAndNothingElseIs)
{
    EXPECT_EQ(FilterValue(QStringLiteral("  a  b  "), {}), QStringLiteral("a  b"));
    EXPECT_EQ(FilterValue(QStringLiteral("\t a \r"), {}), QStringLiteral("\t a \r"));
    Filters filters;
    filters.Tab = filters.Cr = true;
    EXPECT_EQ(FilterValue(QStringLiteral("\t a \r"), filters), QStringLiteral("a"));
}

TEST(Filters, AValueThatIsFilteredAwayKeepsItsPosition)
{
    Filters filters;
    filters.Cr = true;
    QString buffer = QStringLiteral("<A+\r+B>");
    EXPECT_EQ(ParseDataStream(
                  buffer, {QStringLiteral("<"), QStringLiteral("+"), QStringLiteral(">")}, filters),
              (QStringList{QStringLiteral("A"), QString(), QStringLiteral("B")}));
}

TEST(Filters, AMillionBlanksAreHalvedInOnePass)
{
    const QString value = QLatin1Char('a') + QString(1000000, QLatin1Char(' ')) + QLatin1Char('b');
    Filters filters;
    filters.Space = true;
    EXPECT_EQ(FilterValue(value, filters).size(), 500002);
}
