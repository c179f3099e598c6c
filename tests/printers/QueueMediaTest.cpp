#include "printers/CupsPrinter.h"
#include "support/IppPrinter.h"
#include "support/PdfReading.h"
#include "support/Print.h"
#include "support/PrivateCups.h"
#include <QRegularExpression>
#include <algorithm>
#include <gtest/gtest.h>

// The page size of a queue is the size on which its jobs print.

namespace vantrel::test {

namespace {

const QString Queue = QStringLiteral("Cards");
const QString SizeOfCR80 = QStringLiteral("153 x 243");
const QString SizeOfCR79 = QStringLiteral("147 x 238");

CardDriver DriverOfTwoSizes()
{
    return {{{"CR79", 147, 238}, {"CR80", 153, 243}}, "CR80"};
}

CardDriver DriverOfFiveSizes()
{
    return {{{"CR100", 193, 279},
             {"A7", 210, 298},
             {"CR79", 147, 238},
             {"CR80", 153, 243},
             {"Long", 153, 400}},
            "CR80"};
}

CardDriver Reversed(CardDriver driver)
{
    std::reverse(driver.Sizes.begin(), driver.Sizes.end());
    return driver;
}

/// In points: a page is in whole twips, while a queue without a driver has hundredths of a
/// millimetre.
constexpr double TwipRounding = 0.03;

/// Expects both sides of a page to be within a number of points of another's.
void ExpectNear(const QString& page, const QString& expected, double points)
{
    const QStringList sides = page.split(QStringLiteral(" x "));
    const QStringList others = expected.split(QStringLiteral(" x "));
    ASSERT_EQ(sides.size(), 2) << page.toStdString();
    ASSERT_EQ(others.size(), 2) << expected.toStdString();
    for (int side = 0; side < 2; ++side)
        EXPECT_NEAR(sides[side].toDouble(), others[side].toDouble(), points)
            << page.toStdString() << " instead of " << expected.toStdString();
}

/// The default size of a driver that the server has written for a printer, in points.
QString DefaultSizeOf(const QString& driver)
{
    const QString name =
        QRegularExpression(QStringLiteral("\\*DefaultPageSize: *(\\S+)")).match(driver).captured(1);
    const QRegularExpressionMatch size =
        QRegularExpression(
            QStringLiteral("\\*PaperDimension %1(?:\\.Borderless)?: *\"(\\S+) (\\S+)\"")
                .arg(QRegularExpression::escape(name)))
            .match(driver);
    return size.captured(1) + QStringLiteral(" x ") + size.captured(2);
}

class QueueMedia : public ::testing::Test
{
protected:
    /// The page of a card in points, as the printer reports it and as the queue's job has it.
    QString PageOfCard()
    {
        CupsPrinter printer(Queue);
        QString told = QStringLiteral("%1 x %2").arg(QString::number(printer.Width() / 20),
                                                     QString::number(printer.Height() / 20));
        printer.Print(QStringLiteral("card"));
        printer.EndDoc();
        const auto jobs = Cups.WaitForJobs(++m_cards);
        if (jobs.size() < m_cards) {
            ADD_FAILURE() << "no job";
            return told;
        }
        m_options = jobs.last().Options.split(QLatin1Char(' '));
        SCOPED_TRACE(jobs.last().Options.toStdString());
        ExpectNear(PageSizeOfPdf(jobs.last().PdfPath), told, TwipRounding);
        return told;
    }
    /// The page with this driver, whose queue is made anew.
    QString PageWith(const CardDriver& driver)
    {
        Cups.AddQueue(Queue, driver);
        return PageOfCard();
    }
    /// The page of a queue of two sizes on which a user has set these options.
    QString PageWithUserOptions(const QStringList& options)
    {
        Cups.SetUserOptions(Queue, options);
        return PageOfCard();
    }
    bool LastJobHas(const QString& option) const { return m_options.contains(option); }

    PrivateCups Cups;

private:
    int m_cards = 0;
    QStringList m_options;
};

class QueueMediaOfUsers : public QueueMedia
{
protected:
    QueueMediaOfUsers() { Cups.AddQueue(Queue, DriverOfTwoSizes()); }
};

} // namespace

TEST_F(QueueMedia, OfTwoSizesIsTheDriversDefaultInAnyOrder)
{
    EXPECT_EQ(PageWith(DriverOfTwoSizes()), SizeOfCR80);
    EXPECT_EQ(PageWith(Reversed(DriverOfTwoSizes())), SizeOfCR80);
    CardDriver other = DriverOfTwoSizes();
    other.Default = "CR79";
    EXPECT_EQ(PageWith(other), SizeOfCR79);
}

TEST_F(QueueMedia, OfFiveSizesIsTheDriversDefaultInAnyOrder)
{
    for (const DriverSize& size : DriverOfFiveSizes().Sizes) {
        CardDriver driver = DriverOfFiveSizes();
        driver.Default = size.Name;
        const QString page = QStringLiteral("%1 x %2").arg(size.Width).arg(size.Length);
        EXPECT_EQ(PageWith(driver), page) << size.Name.constData();
        EXPECT_EQ(PageWith(Reversed(driver)), page) << size.Name.constData() << ", reversed";
    }
}

TEST_F(QueueMedia, WithMarginsIsTheWholeSheet)
{
    for (CardDriver driver : {DriverOfTwoSizes(), DriverOfFiveSizes()}) {
        driver.Margin = 9;
        EXPECT_EQ(PageWith(driver), SizeOfCR80);
        EXPECT_EQ(PageWith(Reversed(driver)), SizeOfCR80);
    }
}

TEST_F(QueueMedia, FollowsTheAdministratorsDefault)
{
    Cups.AddQueue(Queue, DriverOfTwoSizes());
    Cups.Configure(Queue, QStringLiteral("PageSize=CR79"));
    EXPECT_EQ(PageOfCard(), SizeOfCR79);
    Cups.Configure(Queue, QStringLiteral("PageSize=CR80"));
    EXPECT_EQ(PageOfCard(), SizeOfCR80);
    // The server puts this one into jobs that name no media.
    Cups.Configure(Queue, QStringLiteral("media-default=CR79"));
    EXPECT_EQ(PageOfCard(), SizeOfCR79);
}

TEST_F(QueueMediaOfUsers, GoesFirstByTheDriversName)
{
    EXPECT_EQ(PageWithUserOptions({QStringLiteral("media=CR79")}), SizeOfCR79);
    EXPECT_TRUE(LastJobHas(QStringLiteral("media=CR79")));
    EXPECT_EQ(PageWithUserOptions({QStringLiteral("media=cr80")}), SizeOfCR80);
}

TEST_F(QueueMediaOfUsers, GoesFirstAsThePageSize)
{
    EXPECT_EQ(PageWithUserOptions({QStringLiteral("PageSize=CR79")}), SizeOfCR79);
    EXPECT_TRUE(LastJobHas(QStringLiteral("PageSize=CR79")));
}

TEST_F(QueueMediaOfUsers, GoesFirstByItsMeasures)
{
    EXPECT_EQ(PageWithUserOptions({QStringLiteral("media=custom_card_147x238mm")}), SizeOfCR80)
        << "the driver has no such size";
    EXPECT_EQ(PageWithUserOptions({QStringLiteral("media=custom_51.86x83.96mm_51.86x83.96mm")}),
              SizeOfCR79);
}

TEST_F(QueueMediaOfUsers, IsThePageSizeBeforeTheMedia)
{
    EXPECT_EQ(PageWithUserOptions({QStringLiteral("media=CR80"), QStringLiteral("PageSize=CR79")}),
              SizeOfCR79);
    EXPECT_TRUE(LastJobHas(QStringLiteral("PageSize=CR79")));
}

TEST_F(QueueMediaOfUsers, MayNameATrayToo)
{
    EXPECT_EQ(PageWithUserOptions({QStringLiteral("media=Upper,CR79")}), SizeOfCR79);
    EXPECT_TRUE(LastJobHas(QStringLiteral("media=Upper,CR79")));
}

TEST_F(QueueMediaOfUsers, ThatIsUnknownLeavesTheDefault)
{
    for (const char* name :
         {"CR78", "Custom.100x200", "147x238", "custom_min_1x1mm", "unknown", ","})
        EXPECT_EQ(PageWithUserOptions({QStringLiteral("media=") + QLatin1StringView(name)}),
                  SizeOfCR80)
            << name;
    EXPECT_EQ(
        PageWithUserOptions({QStringLiteral("media=CR79"), QStringLiteral("PageSize=nothing")}),
        SizeOfCR79);
    EXPECT_FALSE(LastJobHas(QStringLiteral("PageSize=nothing"))) << "it would hide the media";
}

TEST_F(QueueMedia, OfAUsersOwnMeasuresIsTakenWhereTheDriverTakesAnySize)
{
    CardDriver driver = DriverOfTwoSizes();
    driver.TakesAnySize = true;
    Cups.AddQueue(Queue, driver);
    EXPECT_EQ(PageWithUserOptions({QStringLiteral("media=Custom.100x200")}),
              QStringLiteral("100 x 200"));
    EXPECT_EQ(PageWithUserOptions({QStringLiteral("media=Custom.600x700")}), SizeOfCR80);
}

TEST_F(QueueMedia, OfADriverlessQueueIsThePrintersDefault)
{
    for (const int margin : {0, 9}) {
        for (CardDriver driver : {DriverOfTwoSizes(), Reversed(DriverOfFiveSizes())}) {
            driver.Margin = margin;
            const IppPrinter printer(driver);
            Cups.AddDriverlessQueue(Queue, printer.Uri());
            SCOPED_TRACE(margin);
            const QString page = PageOfCard();
            // A server takes a size close to a standard one for that one, and its releases differ
            // in which sizes are standard.
            ExpectNear(page, DefaultSizeOf(Cups.DriverOf(Queue)), TwipRounding);
            ExpectNear(page, SizeOfCR80, 1);
            Cups.Delete(Queue);
        }
    }
}

TEST_F(QueueMedia, OfADriverlessQueueIsTheUsersWhereOneIsSet)
{
    const IppPrinter printer(DriverOfTwoSizes());
    Cups.AddDriverlessQueue(Queue, printer.Uri());
    EXPECT_EQ(PageWithUserOptions({QStringLiteral("media=custom_51.86x83.96mm_51.86x83.96mm")}),
              SizeOfCR79);
    EXPECT_EQ(PageWithUserOptions({QStringLiteral("PageSize=51.86x83.96mm.Borderless")}),
              SizeOfCR79);
}

} // namespace vantrel::test
