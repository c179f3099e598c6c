#pragma once

#include "printers/CupsMedia.h"
#include "printers/CupsQueues.h"
#include "printers/PagePrinter.h"
#include <QElapsedTimer>

namespace vantrel {

/// A queue of the machine's CUPS server. It gets each job as a PDF of the size and orientation of
/// its card, with the job's title. The page is that of the media which a user has set for the
/// queue, else of the queue's default media.
class CupsPrinter : public PagePrinter
{
public:
    explicit CupsPrinter(QString queue) : m_queue(std::move(queue)) {}

    QString DeviceName() const override { return m_queue; }
    /// A queue takes options with its jobs, so it carries a track where one is set up for it.
    bool CarriesStripe(int trackNumber) override;
    /// Fails with `PrinterError` also for a line that is too long for an option; a cut one would
    /// open no door, or the wrong one.
    void SendStripe(int trackNumber, const QString& line) override;
    void EndDoc() override;

protected:
    PageSides Sides() const override;
    /// Fails with `PrinterError` and the server's own reason.
    void Deliver(const QByteArray& pdf) override;

private:
    /// What the server told about the queue, asked anew after a while or a failure: an
    /// administrator may have changed it.
    struct Knowledge
    {
        CupsDestination Destination;
        CupsInfo Info;
        std::optional<QueueSheet> Sheet;
        QElapsedTimer Age;
    };

    bool Know() const;
    void SendDocument(const QByteArray& pdf, int jobId);

    QString m_queue;
    /// The stripe of the job that is open.
    std::vector<JobOption> m_stripe;
    mutable Knowledge m_known;
    mutable PageSides m_sides;
    /// What the page of these sides needs to come out on its media.
    mutable std::vector<JobOption> m_mediaOptions;
};

} // namespace vantrel
