#pragma once

#include "support/CardDriver.h"
#include <QProcess>
#include <QTemporaryDir>

namespace vantrel::test {

/// A printer that a print server uses without a driver: a child process that reports its
/// capabilities over IPP. It is on this machine only and not announced to the network.
class IppPrinter
{
public:
    /// It has the sizes and margins of this driver.
    explicit IppPrinter(const CardDriver& driver);
    IppPrinter(const IppPrinter&) = delete;
    IppPrinter& operator=(const IppPrinter&) = delete;
    ~IppPrinter();

    QString Uri() const;
    /// From now on it gives up each job that it takes, as a printer does whose ribbon is torn, or
    /// prints again.
    void SetJammed(bool on) const;
    /// The document of the job of that number, counted from 1, as the printer printed it; empty if
    /// it did not.
    QString DocumentOf(int job) const;

private:
    void StartBus();
    QString WritePrintCommand() const;
    bool Answers() const;

    QTemporaryDir m_folder;
    QProcess m_bus;
    QProcess m_printer;
    int m_port = 0;
};

} // namespace vantrel::test
