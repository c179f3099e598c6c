#pragma once

#include <QByteArray>
#include <vector>

namespace vantrel::test {

/// A size of media as a driver lists it, in points.
struct DriverSize
{
    QByteArray Name;
    int Width = 0;
    int Length = 0;
};

/// The capabilities of a card printer's driver. By default it has one card size of 54 by 86
/// millimetres and takes PDF unchanged.
struct CardDriver
{
    std::vector<DriverSize> Sizes = {{"Card", 153, 243}};
    /// The name of one of the sizes.
    QByteArray Default = "Card";
    /// The margin that the printer leaves white on each side, in points.
    int Margin = 0;
    /// Whether it takes dots instead of PDF.
    bool TakesDots = false;
    /// Dots to the inch of a driver that takes dots.
    int DotsPerInch = 300;
    /// Whether it accepts custom sizes, from 72 to 500 points a side.
    bool TakesAnySize = false;
};

/// The driver's description as a print server installs it.
QByteArray PpdOf(const CardDriver& driver);

} // namespace vantrel::test
