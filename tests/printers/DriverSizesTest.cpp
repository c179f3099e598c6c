#include "printers/DriverSizes.h"
#include "support/CardDriver.h"
#include <QBuffer>
#include <gtest/gtest.h>

namespace vantrel::test {

namespace {

DriverSizes SizesIn(QByteArray ppd)
{
    QBuffer file(&ppd);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return DriverSizes(file);
}

/// Width and length, or nothing.
std::vector<int> SidesOf(const QByteArray& ppd, const QByteArray& name)
{
    const auto size = SizesIn(ppd).Named(name);
    return size ? std::vector<int>{size->Width, size->Length} : std::vector<int>();
}

} // namespace

TEST(DriverSizes, AreFoundByTheirNames)
{
    const QByteArray ppd = PpdOf({{{"CR79", 147, 238}, {"CR80", 153, 243}}, "CR80"});
    EXPECT_EQ(SidesOf(ppd, "CR79"), (std::vector<int>{5186, 8396}));
    EXPECT_EQ(SidesOf(ppd, "CR80"), (std::vector<int>{5398, 8573}));
    EXPECT_EQ(SidesOf(ppd, "cr80"), (std::vector<int>{5398, 8573}));
    EXPECT_EQ(SidesOf(ppd, "CR100"), std::vector<int>());
    EXPECT_EQ(SizesIn(ppd).DefaultName(), "CR80");
}

TEST(DriverSizes, AreReadWithOrWithoutANameForPeople)
{
    EXPECT_EQ(SidesOf("*PaperDimension A: \"72 144\"\r\n", "A"), (std::vector<int>{2540, 5080}));
    EXPECT_EQ(SidesOf("*PaperDimension A/Card: ISO \"x\": \"72 144\"\n", "A"), std::vector<int>());
    EXPECT_EQ(SidesOf("*PaperDimension A /Card:\t\" 72.0  144.0 \"\n", "A"),
              (std::vector<int>{2540, 5080}));
}

TEST(DriverSizes, AreNoneWhereTheFileCannotBeRead)
{
    for (const char* line :
         {"*PaperDimension", "*PaperDimension ", "*PaperDimension A", "*PaperDimension A:",
          "*PaperDimension A: \"", "*PaperDimension A: \"\"", "*PaperDimension A: \"72\"",
          "*PaperDimension A: \"72 0\"", "*PaperDimension A: \"-72 144\"",
          "*PaperDimension A: \"72 144 5\"", "*PaperDimension A: \"nan inf\"",
          "*PaperDimension A: \"1e99 1e99\"", "*PaperDimension A \"72 144\"", "\"*PaperDimension"})
        EXPECT_EQ(SidesOf(line, "A"), std::vector<int>()) << line;
}

TEST(DriverSizes, AreReadFromAFileOfAnyLength)
{
    const QByteArray ppd = QByteArray(1 << 22, 'x') + '\n' + "*PaperDimension A: \"72 144\"\n" +
                           QByteArray(4096, '\0');
    EXPECT_EQ(SidesOf(ppd, "A"), (std::vector<int>{2540, 5080}));
    EXPECT_EQ(SidesOf({}, "A"), std::vector<int>());
}

} // namespace vantrel::test
