#pragma once

#include "printers/Printer.h"
#include <functional>

namespace vantrel {

/// The printers of a batch: one device that prints whatever printer a layout names. A layout is set
/// up as if its own printer were there, so that its card looks the same on the other device.
class BatchPrinters : public Printers
{
public:
    /// @param printer  must outlive this object
    explicit BatchPrinters(Printer& printer) : m_printer(&printer) {}

    /// Sets another device, which must outlive this object.
    void Use(Printer& printer) { m_printer = &printer; }
    /// Sets where the name of the open layout's printer is found.
    void SetWanted(std::function<QString()> wanted) { m_wanted = std::move(wanted); }

    QStringList DeviceNames() override;
    void MakeCurrent(const QString& /*deviceName*/) override {}
    Printer& Current() override { return *m_printer; }

private:
    Printer* m_printer;
    std::function<QString()> m_wanted;
};

} // namespace vantrel
