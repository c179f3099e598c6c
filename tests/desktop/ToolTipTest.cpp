#include "desktop/DesktopStation.h"
#include "desktop/composers/frmEncoding.h"
#include "desktop/controls/DesktopControls.h"
#include "desktop/dialogs/frmToolbar.h"
#include <QAccessible>
#include <QApplication>
#include <QHelpEvent>
#include <QLineEdit>
#include <QTextDocument>
#include <QToolTip>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

/// What an operator reads in the tool tip of a control.
QString ShownTip(QWidget& control)
{
    const QPoint at = control.rect().center();
    QHelpEvent hover(QEvent::ToolTip, at, control.mapToGlobal(at));
    QApplication::sendEvent(&control, &hover);
    QString shown = QToolTip::text();
    // The label that shows a tool tip reads a text that looks like markup as markup.
    if (Qt::mightBeRichText(shown)) {
        QTextDocument document;
        document.setHtml(shown);
        shown = document.toPlainText();
    }
    QToolTip::hideText();
    QApplication::processEvents();
    return shown;
}

/// Texts that markup would change.
const QStringList Texts = {QStringLiteral("R&D"),      QStringLiteral("R&amp;D"),
                           QStringLiteral("<b>A</b>"), QStringLiteral("a <br> b"),
                           QStringLiteral("  A   B "), QStringLiteral("A\nB")};

TEST(ToolTip, ShowsAnElementsTextWithoutReadingItAsMarkup)
{
    DesktopStation station;
    station.WithLayout();
    for (const QString& text : Texts) {
        station.Session.CurrentParams.Track1 = text;
        auto& composer = OpenDialog<frmEncoding>(station.Session, &station.Window);
        auto& element = DesktopStation::Named<QLabel>(composer, "T1Element(1)");
        ASSERT_TRUE(element.toolTip().endsWith(text)) << text.toStdString();
        EXPECT_EQ(ShownTip(element), element.toolTip());
        EXPECT_EQ(QAccessible::queryAccessibleInterface(&element)->text(QAccessible::Description),
                  element.toolTip());
        delete &composer;
    }
}

TEST(ToolTip, ShowsThePanelTextWithoutReadingItAsMarkup)
{
    DesktopStation station;
    station.Load();
    auto& panel = station.Get<QLabel>("SB3");
    for (const QString& text : Texts) {
        station.Session.Face.SetPanelToolTip(3, text);
        EXPECT_EQ(ShownTip(panel), text);
    }
}

TEST(ToolTip, ShowsADelimiterWithoutReadingItAsMarkup)
{
    DesktopStation station;
    auto& dialog = OpenDialog<frmToolbar>(station.Session, &station.Window);
    auto& box = DesktopStation::Named<QLineEdit>(dialog, "txtEnd");
    for (const char* text : {"<b>", "R&D", "  A"}) {
        box.setText(QLatin1StringView(text));
        EXPECT_EQ(ShownTip(box), QStringLiteral("Value is %1  ").arg(QLatin1StringView(text)));
    }
}

} // namespace
} // namespace vantrel::test
