#include "desktop/DesktopStation.h"
#include "desktop/designer/frmDocument.h"
#include "printers/StationPrinters.h"
#include "samples/DemoInstall.h"
#include "station/layout/LoadLayout.h"
#include "station/print/PrintCard.h"
#include "support/Events.h"
#include "support/PdfReading.h"
#include "support/TestSession.h"
#include <QApplication>
#include <QDir>
#include <QTemporaryDir>
#include <cmath>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

/// The demonstration's member card, open, on the built-in printer.
class DemoStation
{
public:
    DemoStation() : Printers(Home(), 1), Session(Home(), m_operator, Printers)
    {
        MakeDemoFolder(Home());
        Session.LayoutDb.Open(Session.PathInFolder(QStringLiteral("Vantrel.dat")));
        SetRecord(QStringLiteral("Ada Lovelace"), QStringLiteral("40012345"),
                  QStringLiteral("Gold"));
        EXPECT_TRUE(LoadLayout(Session, QStringLiteral("Member Card")));
    }
    QString Home() const { return m_folder.filePath(QStringLiteral("Vantrel")); }

private:
    void SetRecord(const QString& name, const QString& number, const QString& kind)
    {
        for (const QString& value : {name, number, kind})
            Session.FieldValues.Add(value);
    }

    QTemporaryDir m_folder;
    TestOperator m_operator;

public:
    StationPrinters Printers;
    vantrel::Session Session;
};

/// Mean difference of the grey values of two pictures of one size, 0 to 255.
double MeanDifference(const QImage& one, const QImage& other)
{
    double sum = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x)
            sum += std::abs(qGray(one.pixel(x, y)) - qGray(other.pixel(x, y)));
    }
    return sum / (static_cast<double>(one.width()) * one.height());
}

TEST(PageLikeness, TheDocumentShowsThePageThatIsPrinted)
{
    DemoStation station;
    PrintCard(station.Session);
    const QString printed =
        station.Session.PathInFolder(QStringLiteral("Printed/Session 1/card-000001.pdf"));
    // The window draws 96 pixels to the inch; the page is read at 288 and scaled down.
    frmDocument window(station.Session);
    const QImage shown = window.CardPicture().convertToFormat(QImage::Format_RGB32);
    const QImage page = ImageOfPdf(printed, 4)
                            .scaled(shown.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                            .convertToFormat(QImage::Format_RGB32);
    // Only the edges of letters and pictures differ, by the two renderers' smoothing.
    constexpr double tolerance = 6;
    EXPECT_LT(MeanDifference(shown, page), tolerance);
    // A tolerance that also passes a shifted card would prove nothing.
    const QImage shifted = shown.copy(3, 3, shown.width() - 3, shown.height() - 3);
    EXPECT_GT(MeanDifference(shifted, page.copy(shifted.rect())), 2 * tolerance);
}

} // namespace
} // namespace vantrel::test
