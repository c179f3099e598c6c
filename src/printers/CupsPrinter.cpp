#include "printers/CupsPrinter.h"
#include "base/Failure.h"
#include "base/Twips.h"
#include <QScopeGuard>
#include <algorithm>
#include <cmath>

namespace vantrel {

namespace {

constexpr qint64 KnowledgeMilliseconds = 2000;
/// The longest name the protocol knows, in bytes.
constexpr qsizetype LongestTitle = 255;
/// The same limit holds for the value of an option.
constexpr qsizetype LongestOption = 255;
constexpr auto UntitledJob = "Card";

[[noreturn]] void FailWithReason()
{
    throw Failure(FailureNumber::PrinterError,
                  QStringLiteral("Printer error: ") + QString::fromUtf8(cupsLastErrorString()));
}

/// A title as the protocol takes it: no control characters, and not cut inside of a character.
QByteArray TitleForQueue(QString title)
{
    std::replace_if(
        title.begin(), title.end(),
        [](QChar character) { return character.category() == QChar::Other_Control; },
        QChar(QLatin1Char(' ')));
    if (title.isEmpty())
        return UntitledJob;
    while (title.toUtf8().size() > LongestTitle)
        title.chop(title.back().isLowSurrogate() ? 2 : 1);
    return title.toUtf8();
}

/// Options that go with one job.
struct JobOptions
{
    JobOptions() = default;
    JobOptions(const JobOptions&) = delete;
    JobOptions& operator=(const JobOptions&) = delete;
    ~JobOptions() { cupsFreeOptions(Count, List); }

    void Add(const QByteArray& name, const QByteArray& value)
    {
        Count = cupsAddOption(name.constData(), value.constData(), Count, &List);
    }

    cups_option_t* List = nullptr;
    int Count = 0;
};

std::size_t IndexOfTrack(int trackNumber)
{
    return static_cast<std::size_t>(trackNumber - 1);
}

/// A stripe line as a job option carries it: all but letters, digits and "-._~" as %XX.
QByteArray EncodedForOption(const QString& line)
{
    QByteArray encoded = line.toUtf8().toPercentEncoding();
    // As they stand these two are a switch, which reaches a driver without its value.
    for (const char* word : {"true", "false"}) {
        if (encoded.compare(word, Qt::CaseInsensitive) == 0)
            encoded = '%' + encoded.left(1).toHex() + encoded.sliced(1);
    }
    if (encoded.size() > LongestOption)
        throw Failure(FailureNumber::PrinterError,
                      QStringLiteral("Printer error: stripe line too long for a job option"));
    return encoded;
}

} // namespace

bool CupsPrinter::Know() const
{
    if (m_known.Info && !m_known.Age.hasExpired(KnowledgeMilliseconds))
        return true;
    m_known = {};
    m_known.Destination = FindCupsQueue(m_queue);
    if (!m_known.Destination)
        return false;
    m_known.Info.reset(cupsCopyDestInfo(CUPS_HTTP_DEFAULT, m_known.Destination.get()));
    m_known.Age.start();
    if (!m_known.Info)
        return false;
    m_known.Sheet = SheetOfQueue(*m_known.Destination, *m_known.Info);
    return true;
}

bool CupsPrinter::CarriesStripe(int trackNumber)
{
    return !Setup().StripeOptions.at(IndexOfTrack(trackNumber)).isEmpty();
}

void CupsPrinter::SendStripe(int trackNumber, const QString& line)
{
    if (!CarriesStripe(trackNumber)) {
        PagePrinter::SendStripe(trackNumber, line);
        return;
    }
    JobOption option{Setup().StripeOptions.at(IndexOfTrack(trackNumber)).toLatin1(),
                     EncodedForOption(line)};
    OpenPage();
    m_stripe.push_back(std::move(option));
}

void CupsPrinter::EndDoc()
{
    // Another card's stripe must never travel with the next one, whatever becomes of this job.
    const auto forget = qScopeGuard([this] { m_stripe.clear(); });
    PagePrinter::EndDoc();
}

PagePrinter::PageSides CupsPrinter::Sides() const
{
    // A queue that cannot be asked keeps its page: the job itself is what then fails, once and with
    // the reason.
    if (Know() && m_known.Sheet) {
        const SheetSize size = m_known.Sheet->Size;
        // Queues turn a page to fit their media, however the driver names its sides.
        // A whole twip undoes what the hundredths of a millimetre rounded.
        m_sides.Short = std::round(TwipsOfHundredths(std::min(size.Width, size.Length)));
        m_sides.Long = std::round(TwipsOfHundredths(std::max(size.Width, size.Length)));
        m_mediaOptions = m_known.Sheet->Options;
    }
    return m_sides;
}

void CupsPrinter::Deliver(const QByteArray& pdf)
{
    if (!Know()) {
        throw Failure(FailureNumber::PrinterError,
                      QStringLiteral("Printer error: no queue ") + m_queue);
    }
    // A card is drawn to its place; a queue that shrinks it into its margins would move it.
    JobOptions options;
    options.Add("print-scaling", "none");
    for (const JobOption& media : m_mediaOptions)
        options.Add(media.Name, media.Value);
    for (const JobOption& track : m_stripe)
        options.Add(track.Name, track.Value);
    int jobId = 0;
    if (cupsCreateDestJob(CUPS_HTTP_DEFAULT, m_known.Destination.get(), m_known.Info.get(), &jobId,
                          TitleForQueue(JobTitle()).constData(), options.Count,
                          options.List) >= IPP_STATUS_REDIRECTION_OTHER_SITE) {
        m_known = {};
        FailWithReason();
    }
    SendDocument(pdf, jobId);
}

void CupsPrinter::SendDocument(const QByteArray& pdf, int jobId)
{
    cups_dest_t* destination = m_known.Destination.get();
    cups_dinfo_t* info = m_known.Info.get();
    const bool sent =
        cupsStartDestDocument(CUPS_HTTP_DEFAULT, destination, info, jobId, "card.pdf",
                              CUPS_FORMAT_PDF, 0, nullptr, 1) == HTTP_STATUS_CONTINUE &&
        cupsWriteRequestData(CUPS_HTTP_DEFAULT, pdf.constData(),
                             static_cast<std::size_t>(pdf.size())) == HTTP_STATUS_CONTINUE &&
        cupsFinishDestDocument(CUPS_HTTP_DEFAULT, destination, info) <
            IPP_STATUS_REDIRECTION_OTHER_SITE;
    if (sent)
        return;
    const Failure failure(FailureNumber::PrinterError,
                          QStringLiteral("Printer error: ") +
                              QString::fromUtf8(cupsLastErrorString()));
    // A job without its document would hold up the queue.
    cupsCancelDestJob(CUPS_HTTP_DEFAULT, destination, jobId);
    m_known = {};
    throw failure;
}

} // namespace vantrel
