#include "desktop/DesktopStation.h"
#include "desktop/dialogs/frmAbout.h"
#include <QCoreApplication>
#include <QDesktopServices>
#include <QKeyEvent>
#include <QUrl>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

/// Stands in for the system's browser.
class Browser : public QObject
{
    Q_OBJECT

public:
    Browser() { QDesktopServices::setUrlHandler(QStringLiteral("https"), this, "Open"); }
    ~Browser() override { QDesktopServices::unsetUrlHandler(QStringLiteral("https")); }

    QList<QUrl> Opened;

public Q_SLOTS:
    void Open(const QUrl& address) { Opened.append(address); }
};

TEST(About, ShowsTitleAndVersionAndOpensTheWebSite)
{
    Browser browser;
    DesktopStation station;
    station.Load();
    station.Choose("cmdAbout");
    auto& about = station.Get<frmAbout>("frmAbout");
    EXPECT_TRUE(about.isVisible());
    EXPECT_EQ(station.Get<QLabel>("lblTitle").text(), QStringLiteral("Ostrand Vantrel"));
    EXPECT_EQ(station.Get<QLabel>("lblVersion").text(), QStringLiteral("v6.0"));
    auto& link = station.Get<QLabel>("lblLink");
    link.setFocus();
    // Tab onto the link, then press it.
    for (const int key : {Qt::Key_Tab, Qt::Key_Return}) {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(&link, &press);
    }
    ASSERT_EQ(browser.Opened.size(), 1);
    EXPECT_EQ(browser.Opened.first().scheme(), QStringLiteral("https"));
    station.Named<QAbstractButton>(about, "cmdOk").click();
    EXPECT_FALSE(about.isVisible());
}

} // namespace
} // namespace vantrel::test

#include "AboutTest.moc"
