#include "printers/BookPrinter.h"
#include <QFileInfo>
#include <utility>

namespace vantrel {

BookPrinter::BookPrinter(QString path, Telling telling)
    : m_path(std::move(path)), m_telling(telling), m_file(m_path),
      m_book([this](const char* bytes, std::size_t count) {
          m_file.Write(bytes, count);
          return true;
      })
{}

BookPrinter::~BookPrinter()
{
    JobOutcome outcome;
    outcome.Reason = QStringLiteral("The file was not finished");
    TellAll(outcome);
}

void BookPrinter::SetPageSides(double shortSide, double longSide)
{
    m_sides = {shortSide, longSide};
}

std::unique_ptr<PageCanvas> BookPrinter::NewPage(double width, double height)
{
    return m_book.NewPage(width, height);
}

JobOutcome BookPrinter::Deliver(const QByteArray& /*pdf*/)
{
    JobOutcome outcome;
    outcome.File = QFileInfo(m_path).fileName();
    return outcome;
}

bool BookPrinter::DeliverLater(const QByteArray& /*pdf*/, const JobEnd& told)
{
    if (m_telling == Telling::AtClose)
        m_untold.push_back(told);
    return m_telling == Telling::AtClose;
}

void BookPrinter::Close(const QString& path)
{
    if (m_isClosed)
        return;
    if (!path.isEmpty())
        m_path = path;
    JobOutcome outcome;
    try {
        if (!m_isFinished)
            m_book.Finish();
        m_isFinished = true;
        m_file.PutInPlace(m_path);
        m_isClosed = true;
    } catch (const Failure& failure) {
        outcome.Reason = ReasonOf(failure);
        if (IsBroken())
            TellAll(outcome);
        throw;
    }
    outcome = Deliver({});
    outcome.HandedOver = true;
    TellAll(outcome);
}

void BookPrinter::TellAll(const JobOutcome& outcome)
{
    for (const JobEnd& told : std::exchange(m_untold, {}))
        told(outcome);
}

} // namespace vantrel
