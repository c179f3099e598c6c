#include "printers/CupsPrinter.h"
#include "base/Failure.h"
#include "base/Twips.h"
#include "printers/CupsMessage.h"
#include "printers/DotsPerInch.h"
#include <algorithm>
#include <cmath>
#include <system_error>

namespace vantrel {

namespace {

constexpr qint64 InfoLifetimeMilliseconds = 2000;
/// The longest job name that IPP allows, in bytes.
constexpr qsizetype LongestTitle = 255;
/// The same limit applies to the value of an option.
constexpr qsizetype LongestOption = 255;
constexpr auto UntitledJob = "Card";

/// Why the last request failed. Of a connection that ended before its answer came libcups tells
/// what it told of the request before, or what the system says of no error.
Failure FailureOfServer()
{
    QString reason = QString::fromUtf8(cupsLastErrorString());
    if (cupsLastError() < IPP_STATUS_REDIRECTION_OTHER_SITE ||
        reason == QString::fromStdString(std::generic_category().message(0)))
        reason = QStringLiteral("The print server did not answer");
    return {FailureNumber::PrinterError, QStringLiteral("Printer error: ") + reason};
}

/// Whether the server has answered that it has taken the whole document. `cupsFinishDestDocument`
/// cannot be asked: where no answer came it returns what the request before was answered with.
bool DocumentIsTaken()
{
    return IsGranted(CupsMessage(cupsGetResponse(CUPS_HTTP_DEFAULT, "/")));
}

/// Makes a title valid for IPP: control characters become blanks, and a long title is cut between
/// characters.
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

/// The options of one job; frees them.
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

/// Encodes a stripe line as the value of a job option: everything but letters, digits and "-._~"
/// becomes %XX.
QByteArray EncodedForOption(const QString& line)
{
    QByteArray encoded = line.toUtf8().toPercentEncoding();
    // CUPS treats these two values as switches and passes them to the driver without a value.
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

bool CupsPrinter::UpdateInfo() const
{
    if (m_info.Info && !m_info.Age.hasExpired(InfoLifetimeMilliseconds))
        return true;
    m_info = {};
    m_info.Destination = FindCupsQueue(m_queue);
    if (!m_info.Destination)
        return false;
    m_info.Info.reset(cupsCopyDestInfo(CUPS_HTTP_DEFAULT, m_info.Destination.get()));
    m_info.Age.start();
    if (!m_info.Info)
        return false;
    m_info.Sheet = SheetOfQueue(*m_info.Destination, *m_info.Info);
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

PagePrinter::PageSides CupsPrinter::Sides() const
{
    // If the queue cannot be queried, the last known page stays; the job itself then fails with the
    // reason.
    if (UpdateInfo() && m_info.Sheet) {
        const SheetSize size = m_info.Sheet->Size;
        // Queues rotate a page to fit the media, so the order of the sides does not matter.
        // Rounding to whole twips removes the rounding error of hundredths of a millimetre.
        m_sides.Short = std::round(TwipsOfHundredths(std::min(size.Width, size.Length)));
        m_sides.Long = std::round(TwipsOfHundredths(std::max(size.Width, size.Length)));
        m_mediaOptions = m_info.Sheet->Options;
    }
    return m_sides;
}

int CupsPrinter::DeviceDotsPerInch() const
{
    return UpdateInfo() ? DotsOfQueue(*m_info.Destination, *m_info.Info) : 0;
}

JobOutcome CupsPrinter::Deliver(const QByteArray& pdf)
{
    if (!UpdateInfo()) {
        throw Failure(FailureNumber::PrinterError,
                      QStringLiteral("Printer error: no queue ") + m_queue);
    }
    // Prevents the queue from scaling the page to its margins, which would shift everything on the
    // card.
    JobOptions options;
    options.Add("print-scaling", "none");
    for (const JobOption& media : m_mediaOptions)
        options.Add(media.Name, media.Value);
    for (const JobOption& track : m_stripe)
        options.Add(track.Name, track.Value);
    int jobId = 0;
    if (cupsCreateDestJob(CUPS_HTTP_DEFAULT, m_info.Destination.get(), m_info.Info.get(), &jobId,
                          TitleForQueue(JobTitle()).constData(), options.Count,
                          options.List) >= IPP_STATUS_REDIRECTION_OTHER_SITE ||
        jobId <= 0) {
        m_info = {};
        throw FailureOfServer();
    }
    SendDocument(pdf, jobId);
    JobOutcome outcome;
    outcome.JobId = jobId;
    return outcome;
}

void CupsPrinter::SendDocument(const QByteArray& pdf, int jobId)
{
    cups_dest_t* destination = m_info.Destination.get();
    cups_dinfo_t* info = m_info.Info.get();
    const bool sent =
        cupsStartDestDocument(CUPS_HTTP_DEFAULT, destination, info, jobId, "card.pdf",
                              CUPS_FORMAT_PDF, 0, nullptr, 1) == HTTP_STATUS_CONTINUE &&
        cupsWriteRequestData(CUPS_HTTP_DEFAULT, pdf.constData(),
                             static_cast<std::size_t>(pdf.size())) == HTTP_STATUS_CONTINUE &&
        DocumentIsTaken();
    if (sent)
        return;
    const Failure failure = FailureOfServer();
    // A job without a document would block the queue.
    cupsCancelDestJob(CUPS_HTTP_DEFAULT, destination, jobId);
    m_info = {};
    throw failure;
}

} // namespace vantrel
