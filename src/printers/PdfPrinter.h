#pragma once

#include "printers/PagePrinter.h"

namespace vantrel {

inline constexpr auto PdfDeviceName = "Vantrel PDF";

/// The built-in printer. Each job becomes one file, numbered from `card-000001.pdf` on after the
/// highest number in its folder. A file becomes visible only when it is complete and never replaces
/// another one, so several printers may share a folder.
class PdfPrinter : public PagePrinter
{
public:
    /// @param folder  created with the first job
    explicit PdfPrinter(QString folder) : m_folder(std::move(folder)) {}

    QString DeviceName() const override { return QString::fromLatin1(PdfDeviceName); }

protected:
    void Deliver(const QByteArray& pdf) override;

private:
    QString m_folder;
    /// The highest number seen in the folder; -1 before the folder was read.
    qint64 m_lastNumber = -1;
};

} // namespace vantrel
