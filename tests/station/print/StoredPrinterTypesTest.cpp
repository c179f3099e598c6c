#include "card/PrinterType.h"
#include "station/print/PrinterSelection.h"
#include "support/TestSession.h"
#include <gtest/gtest.h>
#include <set>

namespace vantrel::test {

// What the printer selection offers comes from the database, what a type means from the program.
TEST(StoredPrinterTypes, OfAFreshDatabaseAreThoseThatHaveAMeaning)
{
    TestSession station;
    station.WithDatabase();
    std::set<QString> offered;
    for (const PrinterKindRow& row : ReadPrinterKinds(station.Session.LayoutDb))
        offered.insert(row.Tag);
    std::set<QString> meant;
    for (const PrinterTypeRow& row : PrinterTypes())
        meant.insert(QString::number(row.Code));
    EXPECT_EQ(offered, meant);
}

} // namespace vantrel::test
