#include "store/SelectStatement.h"
#include "StoreTest.h"

namespace vantrel::test {

namespace {
struct SqlCase
{
    const char* Statement;
    const char* Sql;
};

constexpr SqlCase Accepted[] = {
    {"SELECT * FROM [Controls]", "SELECT rowid, * FROM [Controls] ORDER BY rowid"},
    {" select\t[ID] , Filter from LayoutParams ",
     "SELECT rowid, [ID], [Filter] FROM [LayoutParams] ORDER BY rowid"},
    {"SELECT * FROM [T] WHERE [A] = 'x' AND [B] > 2",
     "SELECT rowid, * FROM [T] WHERE ([A] = 'x' AND [B] > 2) ORDER BY rowid"},
    {"SELECT * FROM [T] ORDER BY [V] ASC", "SELECT rowid, * FROM [T] ORDER BY [V], rowid"},
    {"SELECT * FROM [T] WHERE [A] = 1 ORDER BY V DESC, [W]",
     "SELECT rowid, * FROM [T] WHERE ([A] = 1) ORDER BY [V] DESC, [W], rowid"},
    {"SELECT Distinct [N] FROM [T]", "SELECT DISTINCT [N] FROM [T] ORDER BY [N]"},
    {"SELECT DISTINCT [P] FROM [T] WHERE [N] = 'a ORDER BY b'",
     "SELECT DISTINCT [P] FROM [T] WHERE ([N] = 'a ORDER BY b') ORDER BY [P]"},
    {"SELECT * FROM [T] WHERE [A] = 'x; -- \"y\" /* OR'",
     "SELECT rowid, * FROM [T] WHERE ([A] = 'x; -- \"y\" /* OR') ORDER BY rowid"},
    {"SELECT * FROM [T] WHERE [A] = '' and B>-1",
     "SELECT rowid, * FROM [T] WHERE ([A] = '' and B>-1) ORDER BY rowid"},
};

constexpr const char* Refused[] = {
    "",
    "DELETE FROM [T]",
    "UPDATE [T] SET [A] = 1",
    "SELECT FROM [T]",
    "SELECT *",
    "SELECT * FROM",
    "SELECT * FROM [T], [U]",
    "SELECT * FROM [T] JOIN [U]",
    "SELECT * FROM [T] LIMIT 1",
    "SELECT * FROM [T] WHERE",
    "SELECT * FROM [T] WHERE ORDER BY [A]",
    "SELECT * FROM [T] ORDER [A]",
    "SELECT * FROM [T] ORDER BY",
    "SELECT * FROM [T] ORDER BY [A] ASC 1",
    "SELECT * FROM [T];",
    "SELECT * FROM [T]; DELETE FROM [T]",
    "SELECT * FROM [T] WHERE [A] = 1; DELETE FROM [T]",
    "SELECT * FROM [T] WHERE [A] = 1 --",
    "SELECT * FROM [T] WHERE [A] = 1 /* */",
    "SELECT * FROM [T] WHERE [A] = 'x",
    "SELECT * FROM [T] WHERE [A = 'x'",
    "SELECT * FROM [T] WHERE [A] = \"x\"",
    "SELECT * FROM [T] WHERE [A] IN (SELECT [A] FROM [U])",
    "SELECT * FROM [T] WHERE [A] = 1) UNION VALUES (1",
    "SELECT * FROM [T] WHERE [A] = 'it''s'",
    "SELECT * FROM [T] WHERE [A] = '''",
    "SELECT * FROM [T] WHERE [A] = 'x' OR [A] = 'y'",
    "SELECT * FROM [T] WHERE [A] = 'x' OR '1'='1'",
    "SELECT * FROM [T] WHERE [A] = 'x' AND '1'='1'",
    "SELECT * FROM [T] WHERE [A] = 'x' AND",
    "SELECT * FROM [T] WHERE [A] = [B]",
    "SELECT * FROM [T] WHERE [A] = 1.5",
    "SELECT * FROM [T] WHERE [A] = - ",
    "SELECT * FROM [T] WHERE [A] 1",
    "SELECT * FROM [T] WHERE [A] LIKE 'x'",
    "SELECT 1 + 1 FROM [T]",
    "SELECT COUNT(*) FROM [T]",
};
} // namespace

TEST(SelectStatement, OneSelectOnOneTableIsAccepted)
{
    EXPECT_EQ(std::size(Accepted), 9U);
    for (const SqlCase& row : Accepted)
        EXPECT_EQ(ParseSelect(QString::fromLatin1(row.Statement)).Sql(),
                  QString::fromLatin1(row.Sql));
}

TEST(SelectStatement, AnyOtherStatementIsRefused)
{
    EXPECT_EQ(std::size(Refused), 37U);
    for (const char* statement : Refused)
        EXPECT_EQ(FailureOf([&] { ParseSelect(QString::fromLatin1(statement)); }),
                  FailureNumber::StatementInvalid)
            << statement;
}

} // namespace vantrel::test
