#pragma once

#include "printers/PagePrinter.h"
#include "printers/PdfPrinter.h"

namespace vantrel {

/// A printer that draws each page as the built-in one does and keeps nothing of it, to find out
/// what would print.
class DryPrinter : public PagePrinter
{
public:
    QString DeviceName() const override { return QString::fromLatin1(PdfDeviceName); }

protected:
    JobOutcome Deliver(const QByteArray& /*pdf*/) override { return {}; }
};

} // namespace vantrel
