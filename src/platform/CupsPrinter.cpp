#include "platform/CupsPrinter.h"
#include "platform/Failure.h"
#include "platform/Twips.h"
#include <QScopeGuard>
#include <algorithm>
#include <cmath>

namespace vantrel {

namespace {

constexpr qint64 KnowledgeMilliseconds = 2000;
/// The longest name the protocol knows, in bytes.
constexpr qsizetype LongestTitle = 255;
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
    return m_known.Info != nullptr;
}

PagePrinter::PageSides CupsPrinter::Sides() const
{
    // A queue that cannot be asked keeps its page: the job itself is what then fails, once and with
    // the reason.
    cups_size_t size = {};
    if (Know() &&
        cupsGetDestMediaDefault(CUPS_HTTP_DEFAULT, m_known.Destination.get(), m_known.Info.get(), 0,
                                &size) == 1 &&
        size.width > 0 && size.length > 0) {
        // Queues turn a page to fit their media, however the driver names its sides.
        // A whole twip undoes what the hundredths of a millimetre rounded.
        m_sides.Short = std::round(TwipsOfHundredths(std::min(size.width, size.length)));
        m_sides.Long = std::round(TwipsOfHundredths(std::max(size.width, size.length)));
    }
    return m_sides;
}

void CupsPrinter::Deliver(const QByteArray& pdf)
{
    if (!Know()) {
        throw Failure(FailureNumber::PrinterError,
                      QStringLiteral("Printer error: no queue ") + m_queue);
    }
    cups_option_t* options = nullptr;
    // A card is drawn to its place; a queue that shrinks it into its margins would move it.
    const int count = cupsAddOption("print-scaling", "none", 0, &options);
    const auto freeOptions = qScopeGuard([&] { cupsFreeOptions(count, options); });
    int jobId = 0;
    if (cupsCreateDestJob(CUPS_HTTP_DEFAULT, m_known.Destination.get(), m_known.Info.get(), &jobId,
                          TitleForQueue(JobTitle()).constData(), count,
                          options) >= IPP_STATUS_REDIRECTION_OTHER_SITE) {
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
