#pragma once

#include "printers/StationPrinters.h"
#include "station/session/Session.h"
#include "store/Schema.h"
#include "support/Layouts.h"
#include "support/TestStore.h"
#include <QTemporaryDir>

namespace vantrel::test {

/// A station with the machine's real printers and a fresh database in a temporary folder; its
/// layout "Card" is begun for one of them.
class RealStation
{
public:
    explicit RealStation(const QString& printer)
        : Printers(m_folder.path(), 1), Session(m_folder.path(), m_operator, Printers)
    {
        Session.LayoutDb.Open(m_store.Location());
        Printers.MakeCurrent(printer);
        BeginLayout(Session, QStringLiteral("Card"));
    }

    /// Path of the built-in printer's file of that number.
    QString CardPath(int number) const
    {
        return Session.PathInFolder(
            QStringLiteral("Printed/Session 1/card-%1.pdf").arg(number, 6, 10, QLatin1Char('0')));
    }

private:
    QTemporaryDir m_folder;
    TestStore m_store{m_folder.filePath(QLatin1StringView(LayoutDatabaseName))};
    TestOperator m_operator;

public:
    StationPrinters Printers;
    vantrel::Session Session;
};

} // namespace vantrel::test
