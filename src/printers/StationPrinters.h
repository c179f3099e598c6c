#pragma once

#include "printers/Printer.h"
#include <QElapsedTimer>
#include <map>
#include <memory>

namespace vantrel {

class PdfPrinter;

/// The machine's printers: the CUPS queues in CUPS order, then the built-in "Vantrel PDF", which is
/// current if CUPS has no default. The queues are listed at most every two seconds, since each page
/// of a card needs the list twice.
class StationPrinters : public Printers
{
public:
    /// @param programFolder  the built-in printer writes its cards to `Printed/Session N` in it,
    /// and the setup of printers is read from its `Vantrel 6.ini`
    StationPrinters(const QString& programFolder, int sessionNumber);
    ~StationPrinters() override;

    QStringList DeviceNames() override;
    void MakeCurrent(const QString& deviceName) override;
    Printer& Current() override;
    SpoolState SpoolStateOf(const QString& deviceName) override;
    void FinishJobs() override;
    /// Whether a card of the built-in printer counts as handed over only when it is on the disk, as
    /// in `PdfPrinter::SetDurable`; off at first.
    void SetDurableFiles(bool on);

private:
    void LookAtQueues();
    Printer& PrinterNamed(const QString& deviceName);

    QString m_settingsPath;
    QStringList m_names;
    QString m_defaultName;
    QElapsedTimer m_age;
    /// Kept between jobs, since a printer holds its font and its open page.
    std::map<QString, std::unique_ptr<Printer>> m_printers;
    PdfPrinter* m_builtIn = nullptr;
    Printer* m_current = nullptr;
};

} // namespace vantrel
