#pragma once

#include "CardParts.h"
#include <QByteArray>
#include <QString>
#include <memory>

namespace vantrel::bench {

/// The size of the measured station's database and page.
struct StationSize
{
    /// Layouts in the database, including the measured one.
    int Layouts = 1;
    /// Additional labels on the page.
    int FurtherLabels = 0;
    /// Whether it keeps a ledger, takes every record and gives each number once.
    bool KeepsAccount = false;
    /// Whether its records print behind the surface.
    bool HasDesignTools = false;
};

/// A station without an operator, with a one-page layout of ten texts, a photo, a background and an
/// automatic number. It listens on a port of the loopback interface. Its folder is deleted with it
/// unless VANTREL_BENCH_KEEP is set.
class BenchStation
{
public:
    explicit BenchStation(StationSize size = {});
    BenchStation(const BenchStation&) = delete;
    BenchStation& operator=(const BenchStation&) = delete;
    ~BenchStation();

    /// A path in the station's folder.
    QString Path(const QString& name) const;
    /// Sends the record of one card over TCP and returns when the station is ready for the next.
    void PrintRecord(int card);
    /// Sends so many records at once and returns when all cards are printed and, if the station
    /// keeps account, their outcomes are in the ledger. The station must keep account.
    void PrintBurst(int firstCard, int count);
    /// Generates one number and prints it, like the sequence generator.
    void PrintNumber(int number);
    /// Raises the page's automatic number and saves it in one durable commit.
    void SaveNumber();

private:
    struct Private;
    std::unique_ptr<Private> m_d;
};

/// The printed texts of one card: those of the layout and the automatic number.
std::vector<TextOnCard> TextsAndNumber(int card);

} // namespace vantrel::bench
