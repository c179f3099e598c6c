#pragma once

#include "printers/CupsMedia.h"
#include "printers/CupsQueues.h"
#include "printers/PagePrinter.h"
#include <QElapsedTimer>

namespace vantrel {

/// A queue of the machine's CUPS server. Each job is a PDF of the size and orientation of its card,
/// with the job's title. The page has the size of the media that a user has set for the queue,
/// otherwise of the queue's default media.
class CupsPrinter : public PagePrinter
{
public:
    explicit CupsPrinter(QString queue) : m_queue(std::move(queue)) {}

    QString DeviceName() const override { return m_queue; }
    /// True if a job option is set up for the track.
    bool CarriesStripe(int trackNumber) override;
    /// Fails with `PrinterError` also if the line is too long for a job option; a truncated stripe
    /// must never be encoded.
    void SendStripe(int trackNumber, const QString& line) override;

protected:
    PageSides Sides() const override;
    int DeviceDotsPerInch() const override;
    /// Sends the job to the queue. Fails with `PrinterError` and the server's message.
    JobOutcome Deliver(const QByteArray& pdf) override;
    /// The stripe of a card must never go with the next job.
    void ForgetJob() override { m_stripe.clear(); }

private:
    /// Cached information about the queue. It is queried again after a while and after a failure,
    /// because an administrator may have changed the queue.
    struct QueueInfo
    {
        CupsDestination Destination;
        CupsInfo Info;
        std::optional<QueueSheet> Sheet;
        QElapsedTimer Age;
    };

    /// Brings `m_info` up to date. @return false if the queue cannot be queried
    bool UpdateInfo() const;
    void SendDocument(const QByteArray& pdf, int jobId);

    QString m_queue;
    /// The stripe options of the open job.
    std::vector<JobOption> m_stripe;
    mutable QueueInfo m_info;
    mutable PageSides m_sides;
    /// Options that a page of this size needs to be printed on its media.
    mutable std::vector<JobOption> m_mediaOptions;
};

} // namespace vantrel
