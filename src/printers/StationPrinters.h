#pragma once

#include "printers/Printer.h"
#include <QElapsedTimer>
#include <map>
#include <memory>

namespace vantrel {

/// The machine's printers: the CUPS queues in CUPS order, then the built-in "Vantrel PDF", which is
/// current where CUPS has no default. The list of queues is asked at most every two seconds, since
/// each page of a card walks it twice.
class StationPrinters : public Printers
{
public:
    /// @param programFolder  cards of the built-in printer go to `Printed/Session N` in it, and
    /// what is set up for printers is in its `Vantrel 6.ini`
    StationPrinters(const QString& programFolder, int sessionNumber);
    ~StationPrinters() override;

    QStringList DeviceNames() override;
    void MakeCurrent(const QString& deviceName) override;
    Printer& Current() override;
    SpoolState SpoolStateOf(const QString& deviceName) override;

private:
    void LookAtQueues();
    Printer& PrinterNamed(const QString& deviceName);

    QString m_settingsPath;
    QStringList m_names;
    QString m_defaultName;
    QElapsedTimer m_age;
    /// Kept from job to job: a printer holds its font and its open page.
    std::map<QString, std::unique_ptr<Printer>> m_printers;
    Printer* m_current = nullptr;
};

} // namespace vantrel
