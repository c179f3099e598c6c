#pragma once

#include "printers/PagePrinter.h"

namespace vantrel {

inline constexpr auto PdfDeviceName = "Vantrel PDF";

/// The built-in printer: one file per job, `card-000001.pdf` and on from the highest in its folder.
/// A file is written under a temporary name and put in place without ever replacing one, so several
/// printers may share a folder.
class PdfPrinter : public PagePrinter
{
public:
    /// @param folder  made when the first job comes
    explicit PdfPrinter(QString folder) : m_folder(std::move(folder)) {}

    QString DeviceName() const override { return QString::fromLatin1(PdfDeviceName); }

protected:
    void Deliver(const QByteArray& pdf) override;

private:
    QString m_folder;
    /// The highest number in the folder, as far as this printer knows; -1 before the first look.
    qint64 m_lastNumber = -1;
};

} // namespace vantrel
