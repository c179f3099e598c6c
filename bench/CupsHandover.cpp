// Measures how long the station's thread is blocked while it sends a finished card to the print
// server, compared with the bare calls of libcups that create a job and send the same file. Both
// are measured alternately in the same run. The server is a child process on a domain socket; its
// queue is paused, so that printing does not affect the measurement.

#include "CardParts.h"
#include "base/Failure.h"
#include "printers/CupsPrinter.h"
#include "support/PrivateCups.h"
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <algorithm>
#include <benchmark/benchmark.h>
#include <numeric>

namespace vantrel::bench {

namespace {

const QString Queue = QStringLiteral("Cards");

/// Draws a card and keeps its PDF.
class KeepingPrinter : public PagePrinter
{
public:
    QString DeviceName() const override { return QStringLiteral("Keeping"); }
    QByteArray Kept;

protected:
    JobOutcome Deliver(const QByteArray& pdf) override
    {
        Kept = pdf;
        return {};
    }
};

QByteArray CardWithPhoto()
{
    const QTemporaryDir folder;
    const QString photo = folder.filePath(QStringLiteral("photo.jpg"));
    Photo(300, 400).save(photo, nullptr, 85);
    KeepingPrinter printer;
    printer.PaintPicture(LoadPicture(photo), 200, 200, 1080, 1440);
    for (const TextOnCard& text : Texts(1)) {
        printer.SetFontName(text.Style.Name);
        printer.SetFontSize(text.Style.Size);
        printer.SetCurrentX(text.X);
        printer.SetCurrentY(static_cast<float>(text.Y));
        printer.Print(text.Text);
    }
    printer.EndDoc();
    return printer.Kept;
}

/// The station's printer; exposes the delivery of a job.
class HandingPrinter : public CupsPrinter
{
public:
    using CupsPrinter::CupsPrinter;
    using CupsPrinter::Deliver;
};

/// The reference: a queue whose information is cached, and only the calls that a job needs.
class BareQueue
{
public:
    void Deliver(const QByteArray& pdf) const
    {
        int job = 0;
        const bool sent =
            cupsCreateDestJob(CUPS_HTTP_DEFAULT, m_queue.get(), m_info.get(), &job, "Card", 0,
                              nullptr) < IPP_STATUS_REDIRECTION_OTHER_SITE &&
            cupsStartDestDocument(CUPS_HTTP_DEFAULT, m_queue.get(), m_info.get(), job, "card.pdf",
                                  CUPS_FORMAT_PDF, 0, nullptr, 1) == HTTP_STATUS_CONTINUE &&
            cupsWriteRequestData(CUPS_HTTP_DEFAULT, pdf.constData(),
                                 static_cast<std::size_t>(pdf.size())) == HTTP_STATUS_CONTINUE &&
            cupsFinishDestDocument(CUPS_HTTP_DEFAULT, m_queue.get(), m_info.get()) <
                IPP_STATUS_REDIRECTION_OTHER_SITE;
        if (!sent)
            throw Failure(FailureNumber::PrinterError, QString::fromUtf8(cupsLastErrorString()));
    }

private:
    CupsDestination m_queue = FindCupsQueue(Queue);
    CupsInfo m_info{cupsCopyDestInfo(CUPS_HTTP_DEFAULT, m_queue.get())};
};

/// Times of one method of delivery, in milliseconds.
class Times
{
public:
    template <typename Step>
    double Take(Step&& step)
    {
        QElapsedTimer timer;
        timer.start();
        step();
        m_taken.push_back(static_cast<double>(timer.nsecsElapsed()) * 1e-6);
        return m_taken.back();
    }
    double Sum() const { return std::accumulate(m_taken.begin(), m_taken.end(), 0.0); }
    double AtShare(double share)
    {
        std::sort(m_taken.begin(), m_taken.end());
        return m_taken[static_cast<std::size_t>(share * static_cast<double>(m_taken.size() - 1))];
    }

private:
    std::vector<double> m_taken;
};

void HandOver(benchmark::State& state)
{
    test::PrivateCups cups;
    cups.AddQueue(Queue);
    cups.Pause(Queue);
    const QByteArray pdf = CardWithPhoto();
    HandingPrinter printer(Queue);
    const BareQueue bare;
    printer.Deliver(pdf);
    bare.Deliver(pdf);
    Times station;
    Times limit;
    for ([[maybe_unused]] auto _ : state) { // NOLINT(clang-analyzer-deadcode.DeadStores)
        state.SetIterationTime(station.Take([&] { printer.Deliver(pdf); }) * 1e-3);
        limit.Take([&] { bare.Deliver(pdf); });
    }
    state.counters["pdf_KiB"] = static_cast<double>(pdf.size()) / 1024;
    state.counters["p50_ms"] = station.AtShare(0.5);
    state.counters["p99_ms"] = station.AtShare(0.99);
    state.counters["limit_p50_ms"] = limit.AtShare(0.5);
    state.counters["limit_p99_ms"] = limit.AtShare(0.99);
    state.counters["ratio"] = limit.Sum() / station.Sum();
}

// The number of iterations is limited because the jobs stay in the queue, and the server's spool is
// not the subject.
BENCHMARK(HandOver)->UseManualTime()->Iterations(400)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace vantrel::bench
