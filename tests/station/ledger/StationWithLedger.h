#pragma once

#include "ledger/LedgerReading.h"
#include "ledger/LedgerTables.h"
#include "ledger/LedgerTending.h"
#include "station/capture/Pipeline.h"
#include "station/capture/StoredRecords.h"
#include "station/layout/LoadLayout.h"
#include "station/ledger/StationLedger.h"
#include "store/Schema.h"
#include "store/StoreDatabase.h"
#include "support/Layouts.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vantrel::test {

/// A station that keeps a ledger and gives numbers once, with a layout of a data field and an
/// automatic number, on which records come as from one host.
class StationWithLedger : public ::testing::Test
{
protected:
    StationWithLedger()
    {
        Configure(Session);
        Station.WithDatabase();
        BeginLayout(Session, Name);
        AddField(Session, 1);
        AddNumber(Session, 1000);
        SavePage(Session);
        OpenLedger(Session);
        LoadFirstPage(Session, Name);
        Station.Printers.Operations.clear();
    }

    static void Configure(vantrel::Session& session)
    {
        session.Settings.Framing = {QStringLiteral("<"), QStringLiteral("+"), QStringLiteral(">")};
        session.Options.Ledger = true;
        session.Options.UniqueNumbers = true;
        session.Options.AnswerHost = true;
    }

    bool Arrive(const char* record)
    {
        ArrivalSource source;
        source.Panel = QStringLiteral("Got Data (TCP/IP)");
        source.Peer = QStringLiteral("192.0.2.7:5000");
        source.Answer = [this](const QString& line) { Answers.append(line); };
        return TakeRecord(Session, QString::fromLatin1(record), source);
    }

    StoreDatabase& Store() { return Session.LayoutDb.Database(); }
    LedgerEntry Entry(qlonglong id) { return FindEntry(Store(), id).value(); }

    /// The texts that went to the printer, without the blank that opens each page.
    QStringList Printed() const
    {
        QStringList texts = Station.Printers.Only({QStringLiteral("Print(")});
        texts.removeAll(QStringLiteral("Print(\" \")"));
        return texts;
    }

    const QString Name = QStringLiteral("Badge");
    TestSession Station;
    vantrel::Session& Session = Station.Session;
    QStringList Answers;
};

} // namespace vantrel::test
