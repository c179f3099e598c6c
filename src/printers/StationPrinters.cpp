#include "printers/StationPrinters.h"
#include "base/Failure.h"
#include "base/Profile.h"
#include "printers/CupsPrinter.h"
#include "printers/CupsQueues.h"
#include "printers/PdfPrinter.h"

namespace vantrel {

namespace {

constexpr qint64 ListMilliseconds = 2000;

QByteArray Option(const cups_dest_t& queue, const char* name)
{
    return QByteArray(cupsGetOption(name, queue.num_options, queue.options));
}

int JobsOf(const QByteArray& queueName)
{
    cups_job_t* jobs = nullptr;
    const int count =
        cupsGetJobs2(CUPS_HTTP_DEFAULT, &jobs, queueName.constData(), 0, CUPS_WHICHJOBS_ACTIVE);
    cupsFreeJobs(count, jobs);
    return std::max(count, 0);
}

} // namespace

StationPrinters::StationPrinters(const QString& programFolder, int sessionNumber)
    : m_settingsPath(programFolder + QLatin1Char('/') + SettingsFileName)
{
    auto pdf = std::make_unique<PdfPrinter>(
        QStringLiteral("%1/Printed/Session %2").arg(programFolder, QString::number(sessionNumber)));
    pdf->FollowSetup(m_settingsPath);
    m_builtIn = pdf.get();
    const QString name = pdf->DeviceName();
    m_printers.emplace(name, std::move(pdf));
}

StationPrinters::~StationPrinters() = default;

void StationPrinters::SetDurableFiles(bool on)
{
    m_builtIn->SetDurable(on);
}

void StationPrinters::FinishJobs()
{
    m_builtIn->FinishJobs();
}

void StationPrinters::LookAtQueues()
{
    if (m_age.isValid() && !m_age.hasExpired(ListMilliseconds))
        return;
    m_names.clear();
    m_defaultName = QString::fromLatin1(PdfDeviceName);
    for (const CupsDestination& queue : ListCupsQueues()) {
        m_names.append(QString::fromUtf8(queue->name));
        if (queue->is_default != 0)
            m_defaultName = m_names.constLast();
    }
    m_names.append(QString::fromLatin1(PdfDeviceName));
    m_age.start();
}

QStringList StationPrinters::DeviceNames()
{
    LookAtQueues();
    return m_names;
}

Printer& StationPrinters::PrinterNamed(const QString& deviceName)
{
    if (!m_names.contains(deviceName)) {
        throw Failure(FailureNumber::PrinterError,
                      QStringLiteral("Printer error: no printer ") + deviceName);
    }
    auto& printer = m_printers[deviceName];
    if (!printer) {
        auto queue = std::make_unique<CupsPrinter>(deviceName);
        queue->FollowSetup(m_settingsPath);
        printer = std::move(queue);
    }
    return *printer;
}

void StationPrinters::MakeCurrent(const QString& deviceName)
{
    LookAtQueues();
    m_current = &PrinterNamed(deviceName);
}

Printer& StationPrinters::Current()
{
    if (m_current == nullptr) {
        LookAtQueues();
        m_current = &PrinterNamed(m_defaultName);
    }
    return *m_current;
}

SpoolState StationPrinters::SpoolStateOf(const QString& deviceName)
{
    SpoolState state;
    if (const CupsDestination queue = FindCupsQueue(deviceName)) {
        state.Paused = Option(*queue, "printer-state").toInt() == IPP_PRINTER_STOPPED;
        state.Accepting = Option(*queue, "printer-is-accepting-jobs") == "true";
        state.Jobs = JobsOf(deviceName.toUtf8());
    }
    return state;
}

} // namespace vantrel
