#include "station/ledger/TakeNumbers.h"
#include <gtest/gtest.h>

namespace vantrel::test {

TEST(LockOfNumbers, IsOfOnePageOfOneLayout)
{
    const auto name = [](const char* layout, std::int16_t page) {
        return LockOfNumbers(QString::fromLatin1(layout), page).Name();
    };
    EXPECT_EQ(name("Badge", 1), name("Badge", 1));
    EXPECT_NE(name("Badge", 1), name("Badge", 2));
    EXPECT_NE(name("Badge", 1), name("Pass", 1));
    EXPECT_NE(name("1 of Badge", 1), name("Badge", 1));
    EXPECT_FALSE(LockOfNumbers(QStringLiteral("Badge"), 1).IsOfStore());
}

} // namespace vantrel::test
