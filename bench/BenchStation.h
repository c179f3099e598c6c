#pragma once

#include "CardParts.h"
#include <QByteArray>
#include <QString>
#include <memory>

namespace vantrel::bench {

/// What a station has besides the card that is measured.
struct StationSize
{
    /// Layouts in the store, the measured one among them.
    int Layouts = 1;
    /// Labels on the page besides the card's own objects.
    int FurtherLabels = 0;
};

/// A station nobody stands at, with a one-page layout of ten texts, a photo, a background and an
/// automatic number, that listens on a port of the loopback. Its folder goes with it unless
/// VANTREL_BENCH_KEEP is set.
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
    /// Makes up one number and prints it, as the sequence generator does.
    void PrintNumber(int number);
    /// Raises the page's number and saves it, in one durable commit.
    void SaveNumber();

private:
    struct Private;
    std::unique_ptr<Private> m_d;
};

/// The texts of one card as they print: those of the layout and the automatic number.
std::vector<TextOnCard> TextsAndNumber(int card);

} // namespace vantrel::bench
