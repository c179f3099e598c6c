#include "printers/PdfPrinter.h"
#include "base/Failure.h"
#include "support/PdfReading.h"
#include "support/Print.h"
#include <QDir>
#include <QFile>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <thread>

namespace vantrel::test {

namespace {

class PdfPrinterTest : public ::testing::Test
{
protected:
    QString Folder() const { return m_program.filePath(QStringLiteral("Printed/Session 3")); }
    QString CardPath(const QString& name) const { return Folder() + QLatin1Char('/') + name; }

    /// All there is in the folder, hidden files too.
    QStringList Files() const
    {
        return QDir(Folder()).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
    }

    void Put(const QString& name) const
    {
        ASSERT_TRUE(QDir().mkpath(Folder()));
        QFile file(CardPath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("mine");
    }

    static void PrintCard(PdfPrinter& printer, const QString& text)
    {
        printer.SetFontName(QStringLiteral("Liberation Sans"));
        printer.Print(text);
        printer.EndDoc();
    }

    QTemporaryDir m_program;
};

bool PrintFails(PdfPrinter& printer)
{
    try {
        printer.Print(QStringLiteral("refused"));
        printer.EndDoc();
    } catch (const Failure& failure) {
        return failure.Number() == FailureNumber::PrinterError;
    }
    return false;
}

} // namespace

TEST_F(PdfPrinterTest, TheFolderIsMadeWhenTheFirstCardComes)
{
    PdfPrinter printer(Folder());
    EXPECT_EQ(printer.DeviceName(), QStringLiteral("Vantrel PDF"));
    EXPECT_FALSE(QDir(Folder()).exists());
    PrintCard(printer, QStringLiteral("first"));
    EXPECT_EQ(Files(), QStringList{QStringLiteral("card-000001.pdf")});
}

TEST_F(PdfPrinterTest, TheCardIsReadable)
{
    PdfPrinter printer(Folder());
    PrintCard(printer, QStringLiteral("Anna"));
    const QString card = CardPath(QStringLiteral("card-000001.pdf"));
    EXPECT_EQ(WordsOfPdf(card).at(0).Text, QStringLiteral("Anna"));
    EXPECT_EQ(PageSizeOfPdf(card), QStringLiteral("153 x 243"));
}

TEST_F(PdfPrinterTest, CardNumbersContinueFromTheHighest)
{
    Put(QStringLiteral("card-000007.pdf"));
    Put(QStringLiteral("card-000002.pdf"));
    Put(QStringLiteral("card-00000100.pdf"));
    Put(QStringLiteral("card-000500.txt"));
    Put(QStringLiteral("card-x00600.pdf"));
    PdfPrinter printer(Folder());
    PrintCard(printer, QStringLiteral("a"));
    PrintCard(printer, QStringLiteral("b"));
    EXPECT_TRUE(QFile::exists(CardPath(QStringLiteral("card-000008.pdf"))));
    EXPECT_TRUE(QFile::exists(CardPath(QStringLiteral("card-000009.pdf"))));
    EXPECT_EQ(Files().size(), 7);
}

TEST_F(PdfPrinterTest, NumbersGoOnBeyondSixDigits)
{
    Put(QStringLiteral("card-999999.pdf"));
    PdfPrinter printer(Folder());
    PrintCard(printer, QStringLiteral("a"));
    EXPECT_TRUE(QFile::exists(CardPath(QStringLiteral("card-1000000.pdf"))));
    PdfPrinter next(Folder());
    PrintCard(next, QStringLiteral("b"));
    EXPECT_TRUE(QFile::exists(CardPath(QStringLiteral("card-1000001.pdf"))));
}

TEST_F(PdfPrinterTest, NumbersTooLargeToCountArePassedOver)
{
    const QStringList farAway = {
        QStringLiteral("card-9223372036854775807.pdf"),
        QStringLiteral("card-9223372036854775806.pdf"),
        QStringLiteral("card-9223372036854775808.pdf"),
        QStringLiteral("card-99999999999999999999999999999999.pdf"),
        QStringLiteral("card-18446744073709551617.pdf"),
        QStringLiteral("card-1000000000000.pdf"),
        QStringLiteral("card--00007.pdf"),
    };
    for (const QString& name : farAway)
        Put(name);
    Put(QStringLiteral("card-000007.pdf"));
    PdfPrinter printer(Folder());
    PrintCard(printer, QStringLiteral("a"));
    QStringList expected = farAway;
    expected << QStringLiteral("card-000007.pdf") << QStringLiteral("card-000008.pdf");
    expected.sort();
    QStringList files = Files();
    files.sort();
    EXPECT_EQ(files, expected);
}

TEST_F(PdfPrinterTest, BeyondTheHighestCountedNumberNoCardIsReplaced)
{
    Put(QStringLiteral("card-999999999999.pdf"));
    for (const char* text : {"a", "b"}) {
        PdfPrinter printer(Folder());
        PrintCard(printer, QString::fromLatin1(text));
    }
    EXPECT_EQ(Files().size(), 3);
    EXPECT_EQ(WordsOfPdf(CardPath(QStringLiteral("card-1000000000000.pdf"))).at(0).Text,
              QStringLiteral("a"));
    EXPECT_EQ(WordsOfPdf(CardPath(QStringLiteral("card-1000000000001.pdf"))).at(0).Text,
              QStringLiteral("b"));
}

TEST_F(PdfPrinterTest, ANameThatIsTakenMeanwhileIsNotReplaced)
{
    PdfPrinter printer(Folder());
    PrintCard(printer, QStringLiteral("a"));
    Put(QStringLiteral("card-000002.pdf"));
    Put(QStringLiteral("card-000003.pdf"));
    PrintCard(printer, QStringLiteral("b"));
    EXPECT_EQ(WordsOfPdf(CardPath(QStringLiteral("card-000004.pdf"))).at(0).Text,
              QStringLiteral("b"));
    QFile taken(CardPath(QStringLiteral("card-000002.pdf")));
    ASSERT_TRUE(taken.open(QIODevice::ReadOnly));
    EXPECT_EQ(taken.readAll(), "mine");
}

TEST_F(PdfPrinterTest, ANumberIsNotGivenAgainWhenItsCardIsTakenAway)
{
    PdfPrinter printer(Folder());
    PrintCard(printer, QStringLiteral("a"));
    ASSERT_TRUE(QFile::remove(CardPath(QStringLiteral("card-000001.pdf"))));
    PrintCard(printer, QStringLiteral("b"));
    EXPECT_EQ(Files(), QStringList{QStringLiteral("card-000002.pdf")});
}

TEST_F(PdfPrinterTest, AFolderThatWasTakenAwayIsMadeAgain)
{
    PdfPrinter printer(Folder());
    PrintCard(printer, QStringLiteral("a"));
    ASSERT_TRUE(QDir(Folder()).removeRecursively());
    PrintCard(printer, QStringLiteral("b"));
    EXPECT_EQ(Files(), QStringList{QStringLiteral("card-000002.pdf")});
}

TEST_F(PdfPrinterTest, WhereNoFolderCanBeMadeTheJobFails)
{
    QFile inTheWay(m_program.filePath(QStringLiteral("Printed")));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    PdfPrinter printer(Folder());
    EXPECT_TRUE(PrintFails(printer));
    ASSERT_TRUE(inTheWay.remove());
    PrintCard(printer, QStringLiteral("a"));
    EXPECT_EQ(Files(), QStringList{QStringLiteral("card-000001.pdf")});
}

TEST_F(PdfPrinterTest, ACardThatDoesNotFitLeavesNothingAndTakesNoNumber)
{
    PdfPrinter printer(Folder());
    PrintCard(printer, QStringLiteral("before"));
    {
        // The smallest full disk: no file of this process may grow beyond 100 bytes.
        rlimit before = {};
        ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
        const auto formerHandler = std::signal(SIGXFSZ, SIG_IGN);
        const auto restore = qScopeGuard([&] {
            ::setrlimit(RLIMIT_FSIZE, &before);
            std::signal(SIGXFSZ, formerHandler);
        });
        const rlimit tight{100, before.rlim_max};
        ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &tight), 0);
        EXPECT_TRUE(PrintFails(printer));
    }
    EXPECT_EQ(Files(), QStringList{QStringLiteral("card-000001.pdf")});
    PrintCard(printer, QStringLiteral("after"));
    EXPECT_EQ(Files(),
              (QStringList{QStringLiteral("card-000001.pdf"), QStringLiteral("card-000002.pdf")}));
}

TEST_F(PdfPrinterTest, PrintersThatShareAFolderNeverLoseOrReplaceACard)
{
    constexpr int cardsEach = 50;
    // Drawing and each printer are used by one thread only; the threads share nothing but the
    // folder.
    class FilePrinter : public PdfPrinter
    {
    public:
        using PdfPrinter::Deliver;
        using PdfPrinter::PdfPrinter;
    };
    const auto deliver = [this](const QByteArray& beginning) {
        FilePrinter printer(Folder());
        for (int i = 0; i < cardsEach; ++i)
            printer.Deliver(beginning + QByteArray::number(i));
    };
    std::thread other(deliver, "other ");
    deliver("one ");
    other.join();
    QSet<QByteArray> cards;
    const QStringList files = Files();
    for (const QString& name : files) {
        QFile file(CardPath(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        cards.insert(file.readAll());
    }
    EXPECT_EQ(files.size(), 2 * cardsEach);
    EXPECT_EQ(cards.size(), 2 * cardsEach);
    EXPECT_EQ(files.constLast(), QStringLiteral("card-000100.pdf"));
}

} // namespace vantrel::test
