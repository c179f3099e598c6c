#include "printers/PdfPrinter.h"
#include "base/UnnamedFile.h"
#include "printers/CardWriter.h"
#include <QDir>

namespace vantrel {

PdfPrinter::PdfPrinter(QString folder) : m_folder(std::move(folder)) {}

PdfPrinter::~PdfPrinter()
{
    FinishJobs();
}

void PdfPrinter::SetDurable(bool on)
{
    if (!on) {
        FinishJobs();
        m_writer.reset();
    } else if (!m_writer) {
        m_writer = std::make_unique<CardWriter>(m_folder);
    }
}

void PdfPrinter::FinishJobs()
{
    if (m_writer)
        m_writer->Finish();
}

std::optional<qint64> PdfPrinter::TakeNumber()
{
    return m_nextNumber ? std::optional((*m_nextNumber)++) : std::nullopt;
}

bool PdfPrinter::DeliverLater(const QByteArray& pdf, const JobEnd& told)
{
    if (!m_writer)
        return false;
    m_writer->Write(pdf, told, TakeNumber());
    return true;
}

JobOutcome PdfPrinter::Deliver(const QByteArray& pdf)
{
    JobOutcome outcome;
    if (m_writer) {
        outcome = m_writer->WriteNow(pdf, TakeNumber());
        if (!outcome.HandedOver)
            throw Failure(FailureNumber::PrinterError,
                          QStringLiteral("Printer error: ") + outcome.Reason);
        return outcome;
    }
    if (!QDir().mkpath(m_folder.Path()))
        throw Failure(FailureNumber::PrinterError,
                      QStringLiteral("Printer error: no folder for cards"));
    UnnamedFile file(m_folder.Path());
    file.Write(pdf);
    const std::optional<qint64> number = TakeNumber();
    outcome.File = number ? m_folder.PutAs(*number, file) : m_folder.Put(file);
    return outcome;
}

} // namespace vantrel
