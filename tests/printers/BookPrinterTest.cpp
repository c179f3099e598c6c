#include "printers/BookPrinter.h"
#include "DiskCalls.h"
#include "support/PdfReading.h"
#include "support/Print.h"
#include <QDir>
#include <QFile>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <cerrno>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>

namespace vantrel::test {

namespace {

class BookPrinterTest : public ::testing::Test
{
protected:
    QString Folder() const { return m_program.filePath(QStringLiteral("Printed/Print")); }
    QString Path(const QString& name = QStringLiteral("cards.pdf")) const
    {
        return Folder() + QLatin1Char('/') + name;
    }
    QStringList Files() const
    {
        return QDir(Folder()).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
    }
    void Put(const QString& name) const
    {
        ASSERT_TRUE(QDir().mkpath(Folder()));
        QFile file(Path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("mine");
    }

    /// Prints a card; what is told of it is added to `Told`.
    void Print(BookPrinter& printer, const QString& text)
    {
        printer.SetFontName(QStringLiteral("Liberation Sans"));
        printer.Print(text);
        printer.EndDocAndTell([this](const JobOutcome& outcome) { Told.append(outcome); });
    }

    QTemporaryDir m_program;
    QList<JobOutcome> Told;
};

QString ReasonOfFailure(const std::function<void()>& step)
{
    try {
        step();
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.Number(), FailureNumber::PrinterError);
        return ReasonOf(failure);
    }
    return {};
}

/// While it lives no file can grow beyond so many bytes.
class FileLimit
{
public:
    explicit FileLimit(rlim_t bytes) : m_handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        EXPECT_EQ(::getrlimit(RLIMIT_FSIZE, &m_before), 0);
        const rlimit tight{bytes, m_before.rlim_max};
        EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &tight), 0);
    }
    FileLimit(const FileLimit&) = delete;
    FileLimit& operator=(const FileLimit&) = delete;
    ~FileLimit()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }

private:
    rlimit m_before = {};
    void (*m_handler)(int);
};

} // namespace

TEST_F(BookPrinterTest, EachJobBecomesAPageInItsOrder)
{
    BookPrinter printer(Path());
    EXPECT_EQ(printer.DeviceName(), QStringLiteral("Vantrel PDF"));
    for (const char* text : {"one", "two", "three"})
        Print(printer, QString::fromLatin1(text));
    EXPECT_EQ(printer.PageCount(), 3);
    printer.Close();
    EXPECT_EQ(Files(), QStringList(QStringLiteral("cards.pdf")));
    ExpectValidPdf(Path());
    EXPECT_EQ(TextsOfPages(Path()),
              (QStringList{QStringLiteral("one"), QStringLiteral("two"), QStringLiteral("three")}));
    ASSERT_EQ(Told.size(), 3);
    for (const JobOutcome& outcome : Told) {
        EXPECT_TRUE(outcome.HandedOver);
        EXPECT_EQ(outcome.File, QStringLiteral("cards.pdf"));
    }
}

TEST_F(BookPrinterTest, PagesHaveTheSizeAndOrientationOfTheirJobs)
{
    BookPrinter printer(Path());
    Print(printer, QStringLiteral("a"));
    printer.SetOrientation(OrientationLandscape);
    Print(printer, QStringLiteral("b"));
    printer.SetPageSides(2000, 4000);
    Print(printer, QStringLiteral("c"));
    printer.Close();
    EXPECT_EQ(SizesOfPages(Path()),
              (QStringList{QStringLiteral("153 x 243"), QStringLiteral("243 x 153"),
                           QStringLiteral("200 x 100")}));
}

TEST_F(BookPrinterTest, NothingStandsUnderTheNameBeforeTheFileIsWhole)
{
    {
        BookPrinter printer(Path());
        for (int i = 0; i < 500; ++i)
            Print(printer, QString::number(i));
        EXPECT_EQ(Files(), QStringList());
    }
    EXPECT_EQ(Files(), QStringList());
}

TEST_F(BookPrinterTest, OutcomesToldAtCloseAreToldWhenTheFileIsWhole)
{
    BookPrinter printer(Path(), BookPrinter::Telling::AtClose);
    Print(printer, QStringLiteral("a"));
    Print(printer, QStringLiteral("b"));
    EXPECT_EQ(Told.size(), 0);
    printer.Close();
    ASSERT_EQ(Told.size(), 2);
    EXPECT_TRUE(Told[0].HandedOver);
    EXPECT_EQ(Told[1].File, QStringLiteral("cards.pdf"));
}

TEST_F(BookPrinterTest, OutcomesToldAtCloseAreFailuresWithoutAFile)
{
    {
        BookPrinter printer(Path(), BookPrinter::Telling::AtClose);
        Print(printer, QStringLiteral("a"));
    }
    ASSERT_EQ(Told.size(), 1);
    EXPECT_FALSE(Told[0].HandedOver);
    EXPECT_EQ(Told[0].Reason, QStringLiteral("The file was not finished"));
}

TEST_F(BookPrinterTest, AJobWithoutAPageIsNoPageOfTheFile)
{
    BookPrinter printer(Path());
    printer.EndDocAndTell([this](const JobOutcome& outcome) { Told.append(outcome); });
    Print(printer, QStringLiteral("a"));
    printer.Close();
    ASSERT_EQ(Told.size(), 2);
    EXPECT_EQ(Told[0].Reason, QString::fromLatin1(NothingDrawn));
    EXPECT_EQ(PagesOfPdf(Path()), 1);
}

TEST_F(BookPrinterTest, AFileWithoutAPageIsNotMade)
{
    BookPrinter printer(Path());
    const QString reason = QStringLiteral("the document has no page");
    EXPECT_EQ(ReasonOfFailure([&] { printer.Close(); }), reason);
    EXPECT_EQ(ReasonOfFailure([&] { printer.Close(); }), reason);
    EXPECT_EQ(Files(), QStringList());
    Print(printer, QStringLiteral("a"));
    printer.Close();
    EXPECT_EQ(PagesOfPdf(Path()), 1);
}

TEST_F(BookPrinterTest, AFileThatExistsIsNeverReplaced)
{
    Put(QStringLiteral("cards.pdf"));
    const QString reason = QStringLiteral("there is already a file ") + Path();
    EXPECT_EQ(ReasonOfFailure([&] { BookPrinter printer(Path()); }), reason);

    BookPrinter printer(Path(QStringLiteral("late.pdf")), BookPrinter::Telling::AtClose);
    Print(printer, QStringLiteral("a"));
    Put(QStringLiteral("late.pdf"));
    EXPECT_EQ(ReasonOfFailure([&] { printer.Close(); }),
              QStringLiteral("there is already a file ") + Path(QStringLiteral("late.pdf")));
    EXPECT_EQ(Told.size(), 0);
    EXPECT_FALSE(printer.IsBroken());
    printer.Close(Path(QStringLiteral("other.pdf")));
    EXPECT_EQ(QFile(Path(QStringLiteral("late.pdf"))).size(), 4);
    EXPECT_EQ(PagesOfPdf(Path(QStringLiteral("other.pdf"))), 1);
    ASSERT_EQ(Told.size(), 1);
    EXPECT_EQ(Told[0].File, QStringLiteral("other.pdf"));
    printer.Close();
    EXPECT_EQ(Files().size(), 3);
}

TEST_F(BookPrinterTest, AFullDiskFailsAllFurtherCardsAndLeavesNoFile)
{
    const QString reason = Folder() + QStringLiteral(": File too large");
    {
        BookPrinter printer(Path(), BookPrinter::Telling::AtClose);
        const FileLimit limit(rlim_t{150'000});
        for (int i = 0; i < 1000; ++i)
            Print(printer, QString::number(i));
        EXPECT_TRUE(printer.IsBroken());
        ASSERT_GT(Told.size(), 0);
        EXPECT_EQ(Told.constLast().Reason, reason);
        EXPECT_EQ(ReasonOfFailure([&] { printer.Close(); }), reason);
        EXPECT_EQ(Told.size(), 1000);
    }
    EXPECT_EQ(Told.size(), 1000);
    for (const JobOutcome& outcome : Told) {
        EXPECT_FALSE(outcome.HandedOver);
        EXPECT_EQ(outcome.Reason, reason);
    }
    EXPECT_EQ(Files(), QStringList());
}

TEST_F(BookPrinterTest, ADiskThatIsFullAtTheEndLeavesNoFile)
{
    {
        BookPrinter printer(Path());
        Print(printer, QStringLiteral("a"));
        {
            DiskCalls disk;
            disk.FailBytes(ENOSPC, 1);
            EXPECT_EQ(ReasonOfFailure([&] { printer.Close(); }),
                      Folder() + QStringLiteral(": No space left on device"));
        }
        EXPECT_TRUE(printer.IsBroken());
        EXPECT_EQ(ReasonOfFailure([&] { printer.Close(); }),
                  Folder() + QStringLiteral(": No space left on device"));
    }
    EXPECT_EQ(Files(), QStringList());
}

TEST_F(BookPrinterTest, AFileWhoseNameDoesNotReachTheDiskIsTakenBack)
{
    ASSERT_TRUE(QDir().mkpath(Folder()));
    BookPrinter printer(Path());
    Print(printer, QStringLiteral("a"));
    DiskCalls disk;
    disk.FailNames(EIO, 1);
    EXPECT_EQ(ReasonOfFailure([&] { printer.Close(); }),
              Folder() + QStringLiteral(": Input/output error"));
    EXPECT_EQ(Files(), QStringList());
}

TEST_F(BookPrinterTest, BytesReachTheDiskBeforeTheNameAndThenTheName)
{
    ASSERT_TRUE(QDir().mkpath(Folder()));
    BookPrinter printer(Path());
    Print(printer, QStringLiteral("a"));
    const DiskCalls disk;
    printer.Close();
    EXPECT_EQ(disk.Seen().join(QLatin1Char('|')),
              QStringLiteral("bytes to disk|named cards.pdf|names to disk Print"));
}

TEST_F(BookPrinterTest, AFolderThatCannotBeMadeFailsAtOnce)
{
    QFile inTheWay(m_program.filePath(QStringLiteral("Printed")));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    EXPECT_EQ(ReasonOfFailure([&] { BookPrinter printer(Path()); }),
              inTheWay.fileName() + QStringLiteral(": Not a directory"));
}

} // namespace vantrel::test
