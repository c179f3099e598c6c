#include "ledger/LedgerTables.h"
#include "station/capture/Pipeline.h"
#include "station/layout/LoadLayout.h"
#include "station/layout/SaveLayout.h"
#include "store/StoreDatabase.h"
#include "store/StoreUpgrade.h"
#include "support/Layouts.h"
#include "support/PrivatePostgres.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

// Two stations, each with a folder of its own, whose layouts one server keeps: what one of them
// saves is what the other prints next.

namespace vantrel::test {

namespace {

const QString Badge = QStringLiteral("Badge");

class FreshLayout : public ::testing::TestWithParam<bool>
{
protected:
    FreshLayout()
    {
        BringUpToDate(*OpenStoreDatabase(Address), LedgerTables());
        for (TestSession* station : {&Designer, &Printer}) {
            vantrel::Session& session = station->Session;
            session.LayoutDb.Open(Address);
            session.Options.DesignTools = GetParam();
            session.Settings.Framing = {QStringLiteral("<"), QStringLiteral("+"),
                                        QStringLiteral(">")};
        }
        BeginLayout(Designer.Session, Badge);
        AddText(Designer.Session, QStringLiteral("first"));
        AddField(Designer.Session, 1);
        SavePage(Designer.Session);
        EXPECT_TRUE(LoadFirstPage(Printer.Session, Badge));
    }
    ~FreshLayout() override { PrivatePostgres::Shared().DropSchema(Address); }

    /// The texts of the cards that a record prints at the second station.
    QStringList Prints(const char* record)
    {
        Printer.Printers.Operations.clear();
        TakeRecord(Printer.Session, QString::fromLatin1(record), {});
        QStringList texts = Printer.Printers.Only({QStringLiteral("Print(")});
        texts.removeAll(QStringLiteral("Print(\" \")"));
        return texts;
    }
    void Rename(CardObject& text, const char* caption)
    {
        text.SetCaption(QString::fromLatin1(caption));
        SavePage(Designer.Session);
    }

    QString Address = PrivatePostgres::Shared().NewSchema();
    TestSession Designer;
    TestSession Printer;
};

std::string NameOfCase(const testing::TestParamInfo<bool>& tools)
{
    return tools.param ? "BehindTheSurface" : "OnTheOnePage";
}

} // namespace

TEST_P(FreshLayout, EachRecordPrintsWhatWasSavedLast)
{
    EXPECT_THAT(Prints("<Ada>"), testing::ElementsAre(QStringLiteral("Print(\"first\")"),
                                                      QStringLiteral("Print(\"Ada\")")));
    CardObject& added = AddText(Designer.Session, QStringLiteral("added"));
    SavePage(Designer.Session);
    for (const char* caption : {"second", "third", "fourth"}) {
        Rename(added, caption);
        EXPECT_THAT(Prints("<Bea>"),
                    testing::UnorderedElementsAre(
                        QStringLiteral("Print(\"first\")"), QStringLiteral("Print(\"Bea\")"),
                        QStringLiteral("Print(\"%1\")").arg(QLatin1StringView(caption))));
    }
}

INSTANTIATE_TEST_SUITE_P(Station, FreshLayout, testing::Bool(), NameOfCase);

} // namespace vantrel::test
