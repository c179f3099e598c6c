#pragma once

#include "printers/PdfPrinter.h"
#include "support/Print.h"
#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace vantrel::test {

/// The name of the card file of that number.
inline QString CardName(int number)
{
    return QStringLiteral("card-%1.pdf").arg(number, 6, 10, QLatin1Char('0'));
}

/// A durable built-in printer in a folder of its own, and what was told of its jobs.
class DurableCards : public ::testing::Test
{
protected:
    DurableCards() { Printer->SetDurable(true); }

    QString Folder() const { return m_program.filePath(QStringLiteral("Printed/Session 3")); }
    QString CardPath(int number) const { return Folder() + QLatin1Char('/') + CardName(number); }

    QStringList Files() const
    {
        return QDir(Folder()).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
    }

    void Draw(const QString& text) const
    {
        Printer->SetFontName(QStringLiteral("Liberation Sans"));
        Printer->Print(text);
    }

    /// Ends a job; what is told of it is added to `Told`.
    void PrintCard(const QString& text = QStringLiteral("x"))
    {
        Draw(text);
        Printer->EndDocAndTell([this](const JobOutcome& outcome) { Told.append(outcome); });
    }

    /// Prints a card and waits. @return what is told of it
    JobOutcome OutcomeOfCard()
    {
        const auto before = Told.size();
        PrintCard();
        Printer->FinishJobs();
        EXPECT_EQ(Told.size(), before + 1);
        return Told.value(before);
    }

    QTemporaryDir m_program;
    QList<JobOutcome> Told;
    /// Tells what is under way when it is destroyed, so it is destroyed first.
    std::unique_ptr<PdfPrinter> Printer = std::make_unique<PdfPrinter>(Folder());
};

} // namespace vantrel::test
