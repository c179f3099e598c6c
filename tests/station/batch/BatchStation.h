#pragma once

#include "printers/DryPrinter.h"
#include "station/batch/BatchAccount.h"
#include "station/batch/BatchPrinters.h"
#include "station/batch/NumberBlocks.h"
#include "station/batch/RowPrinter.h"
#include "station/layout/LoadLayout.h"
#include "station/ledger/StationLedger.h"
#include "store/Schema.h"
#include "support/FailureOf.h"
#include "support/Layouts.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vantrel::test {

/// A session whose layout has a data field and an automatic number, and rows for it.
class BatchStation : public ::testing::Test
{
protected:
    BatchStation()
    {
        Station.WithDatabase();
        BeginLayout(Session, Name);
        AddField(Session, 1);
        AddNumber(Session, 1000);
        SavePage(Session);
        Station.Printers.Operations.clear();
    }

    /// Gives the layout a second page with a number of its own.
    void WithSecondPage()
    {
        BeginPage(Session, 2);
        AddNumber(Session, 70);
        SavePage(Session);
        Station.Printers.Operations.clear();
    }
    static Batch RowsOf(const QStringList& values, qint64 first = 1)
    {
        Batch batch;
        for (const QString& value : values) {
            const qint64 number = first + static_cast<qint64>(batch.Rows.size());
            batch.Rows.push_back({.Number = number, .Line = number, .Values = {value}});
        }
        return batch;
    }
    void TakeNumbersFor(Batch& batch, const RowPlan& plan)
    {
        batch.Numbers = PagesWithNumbers(plan);
        Session.LayoutDb.BeginTrans();
        TakeNumbersOfRows(Session.LayoutDb, plan, batch.Rows.size(), batch.Numbers);
        Session.LayoutDb.CommitTrans();
    }
    RowPlan PlanOf(const BatchTarget& target)
    {
        RowPlan plan = RowPrinter(Session, target).Plan();
        Station.Printers.Operations.clear();
        return plan;
    }
    std::vector<RowResult> Print(const Batch& batch, const RowPlan& plan, const BatchTarget& target,
                                 std::size_t most = 1000)
    {
        RowPrinter printer(Session, target);
        return printer.Print(
            batch, plan, [&](std::size_t row) { return row < most; }, [] {});
    }
    /// The texts that went to the printer, without the blank that opens each page.
    QStringList Printed() const
    {
        QStringList texts;
        for (const QString& operation : Station.Printers.Only({QStringLiteral("Print(")})) {
            const QString text = operation.sliced(7, operation.size() - 9);
            if (text != QStringLiteral(" "))
                texts.append(text);
        }
        return texts;
    }
    QStringList Stored() { return StoredNumbers(Session, Name); }

    const QString Name = QStringLiteral("Badge");
    const BatchTarget Target{.Layout = Name, .Macro = {}};
    TestSession Station;
    vantrel::Session& Session = Station.Session;
};

} // namespace vantrel::test
