#pragma once

#include "ledger/LedgerRows.h"
#include "road/LedgerFolder.h"
#include <QProcess>
#include <map>
#include <memory>

namespace vantrel::test {

/// A program folder whose layout has two fields and an automatic number, and runs of
/// `vantrel-print` on it.
class PrintFolder : public LedgerFolder
{
public:
    /// How a run ended and what it wrote.
    struct Outcome
    {
        int Code = -1;
        QString Out;
        QStringList Errors;
    };

    /// Writes a file into the program folder. @return its path
    QString Write(const QString& name, const QByteArray& bytes) const;
    /// A table of so many rows: "A1,x", "A2,x" ... @return its path
    QString WriteRows(int count) const;
    QString PathOf(const QString& name) const;

    /// Starts a run on the layout. @param words  what follows the layout's name
    std::unique_ptr<QProcess> Start(const QStringList& words) const;
    /// Runs on the layout, with these bytes at its standard input, and waits for its end.
    Outcome Run(const QStringList& words, const QByteArray& input = {}) const;
    /// Runs with just these words.
    static Outcome RunPlain(const QStringList& words, const QByteArray& input = {});
    static Outcome EndOf(QProcess& run);

    /// The paths of the cards in a folder, in the order of their numbers.
    static QStringList CardsIn(const QString& folder);
    QStringList Cards() const { return CardsIn(PathOf(QStringLiteral("Printed/Print"))); }
    /// The texts of these cards.
    static QStringList TextsOf(const QStringList& cards);
    std::map<qlonglong, LedgerEntry> Entries() const;
    /// The number that the layout has in the store.
    QString StoredNumber() const;
};

} // namespace vantrel::test
