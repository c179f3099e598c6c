#include "printers/CupsJobList.h"
#include "printers/CupsMessage.h"
#include <QElapsedTimer>
#include <QStringList>
#include <array>
#include <memory>

namespace vantrel {

namespace {

constexpr std::chrono::milliseconds ConnectTime{5000};
/// How often a waiting request looks whether it may go on.
constexpr double LookSeconds = 0.1;

struct Closer
{
    void operator()(http_t* connection) const { httpClose(connection); }
};
using Connection = std::unique_ptr<http_t, Closer>;

/// What a waiting request is given up for.
class Waiting
{
public:
    explicit Waiting(const RequestLimit& limit) : m_limit(limit) { m_silence.start(); }
    bool GoesOn() const
    {
        return std::atomic_ref<int>(*m_limit.Stop) == 0 &&
               !m_silence.hasExpired(m_limit.Patience.count());
    }

private:
    RequestLimit m_limit;
    QElapsedTimer m_silence;
};

/// Called by libcups each time that the server was silent for a while.
int OnSilence(http_t* /*connection*/, void* waiting)
{
    return static_cast<const Waiting*>(waiting)->GoesOn() ? 1 : 0;
}

const char* NoPassword(const char* /*prompt*/, http_t* /*connection*/, const char* /*method*/,
                       const char* /*resource*/, void* /*data*/)
{
    return nullptr;
}

CupsMessage ListRequest(int first, int atMost)
{
    constexpr std::array wanted = {"job-id", "job-state", "job-state-reasons",
                                   "job-printer-state-message"};
    CupsMessage request(ippNewRequest(IPP_OP_GET_JOBS));
    ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_URI, "printer-uri", nullptr,
                 "ipp://localhost/");
    ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name", nullptr,
                 cupsUser());
    ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "which-jobs", nullptr, "all");
    ippAddInteger(request.get(), IPP_TAG_OPERATION, IPP_TAG_INTEGER, "first-job-id", first);
    ippAddInteger(request.get(), IPP_TAG_OPERATION, IPP_TAG_INTEGER, "limit", atMost);
    ippAddStrings(request.get(), IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes",
                  static_cast<int>(wanted.size()), nullptr, wanted.data());
    return request;
}

/// What the answer says about one job.
struct JobAttributes
{
    int JobId = 0;
    int State = 0;
    QStringList Reasons;
    QString Message;

    void Take(ipp_attribute_t* attribute)
    {
        const QByteArray name(ippGetName(attribute));
        if (name == "job-id")
            JobId = ippGetInteger(attribute, 0);
        else if (name == "job-state")
            State = ippGetInteger(attribute, 0);
        else if (name == "job-printer-state-message")
            Message = QString::fromUtf8(ippGetString(attribute, 0, nullptr)).simplified();
        else if (name == "job-state-reasons")
            for (int i = 0; i < ippGetCount(attribute); ++i)
                Reasons.append(QString::fromUtf8(ippGetString(attribute, i, nullptr)));
    }
};

/// "job-canceled-by-user" becomes "canceled by user".
QString PlainWords(QString keyword)
{
    constexpr QLatin1StringView beginning{"job-"};
    if (keyword.startsWith(beginning))
        keyword.remove(0, beginning.size());
    return keyword.replace(QLatin1Char('-'), QLatin1Char(' '));
}

QString ReasonOfFailure(const JobAttributes& job)
{
    const QString state =
        job.State == IPP_JSTATE_CANCELED ? QStringLiteral("canceled") : QStringLiteral("aborted");
    QStringList words;
    for (const QString& reason : job.Reasons) {
        // Servers leave the second one at jobs that have stopped long ago.
        if (reason != QStringLiteral("none") &&
            reason != QStringLiteral("processing-to-stop-point"))
            words.append(PlainWords(reason));
    }
    QString text = words.join(QStringLiteral(", "));
    if (!text.contains(state))
        text = text.isEmpty() ? state : state + QStringLiteral(", ") + text;
    text[0] = text[0].toUpper();
    return job.Message.isEmpty() ? text : text + QStringLiteral(": ") + job.Message;
}

JobListing::Job Listed(const JobAttributes& job)
{
    JobListing::Job listed;
    listed.JobId = job.JobId;
    switch (job.State) {
    case IPP_JSTATE_COMPLETED:
        listed.HasEnded = true;
        break;
    case IPP_JSTATE_CANCELED:
    case IPP_JSTATE_ABORTED:
        listed.HasEnded = true;
        listed.State = JobState::Failed;
        listed.Reason = ReasonOfFailure(job);
        break;
    default:
        break;
    }
    return listed;
}

JobListing ReadAnswer(ipp_t* answer, int atMost)
{
    JobListing listing;
    JobAttributes job;
    const auto endJob = [&] {
        if (job.JobId > 0)
            listing.Jobs.push_back(Listed(job));
        job = {};
    };
    for (ipp_attribute_t* attribute = ippFirstAttribute(answer); attribute != nullptr;
         attribute = ippNextAttribute(answer)) {
        if (ippGetGroupTag(attribute) == IPP_TAG_JOB)
            job.Take(attribute);
        else
            endJob();
    }
    endJob();
    listing.GoesOn = static_cast<int>(listing.Jobs.size()) >= atMost;
    return listing;
}

} // namespace

CupsServerAddress CupsServerAddress::OfThisThread()
{
    return {QByteArray(cupsServer()), ippPort(), cupsEncryption()};
}

std::optional<JobListing> ListCupsJobs(const CupsServerAddress& server, int first, int atMost,
                                       const RequestLimit& limit)
{
    cupsSetPasswordCB2(NoPassword, nullptr);
    const Connection connection(httpConnect2(server.Host.constData(), server.Port, nullptr,
                                             AF_UNSPEC, server.Encryption, 1,
                                             static_cast<int>(ConnectTime.count()), limit.Stop));
    if (!connection)
        return std::nullopt;
    Waiting waiting(limit);
    httpSetTimeout(connection.get(), LookSeconds, OnSilence, &waiting);
    // The request is freed by the call.
    const CupsMessage answer(
        cupsDoRequest(connection.get(), ListRequest(first, atMost).release(), "/"));
    if (!IsGranted(answer))
        return std::nullopt;
    return ReadAnswer(answer.get(), atMost);
}

} // namespace vantrel
