#pragma once

#include "printers/CardFolder.h"
#include "printers/PagePrinter.h"
#include <optional>

namespace vantrel {

class CardWriter;

inline constexpr auto PdfDeviceName = "Vantrel PDF";

/// The built-in printer. Each job becomes one file, numbered from `card-000001.pdf` on after the
/// highest number in its folder. A file becomes visible only when it is complete and never replaces
/// another one, so several printers may share a folder.
class PdfPrinter : public PagePrinter
{
public:
    /// @param folder  created with the first job
    explicit PdfPrinter(QString folder);
    /// Like `FinishJobs`; what is told then must not use the printer.
    ~PdfPrinter() override;

    QString DeviceName() const override { return QString::fromLatin1(PdfDeviceName); }

    /// Whether a job counts as handed over only when its file is on the disk: it is forced there
    /// before it gets its name, and then its name. A thread of its own does that, so that
    /// `EndDocAndTell` need not wait for the disk; `EndDoc` waits. Off at first. Switching it off
    /// finishes the jobs under way.
    void SetDurable(bool on);
    /// From now on the files are numbered from this number on, one for each job that is drawn. A
    /// job whose number is taken fails.
    void CountFrom(qint64 number) { m_nextNumber = number; }
    /// Waits until all jobs are on the disk and their outcomes told.
    void FinishJobs();

protected:
    JobOutcome Deliver(const QByteArray& pdf) override;
    bool DeliverLater(const QByteArray& pdf, const JobEnd& told) override;

private:
    /// The number of the next job, and it is one higher from then on; nothing if the folder
    /// decides.
    std::optional<qint64> TakeNumber();

    std::optional<qint64> m_nextNumber;
    /// Belongs to the writer's thread while there is a writer.
    CardFolder m_folder;
    std::unique_ptr<CardWriter> m_writer;
};

} // namespace vantrel
