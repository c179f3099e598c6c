#include "base/Profile.h"
#include "desktop/DesktopStation.h"
#include "desktop/dialogs/frmToolbar.h"
#include "station/capture/Pipeline.h"
#include "station/session/Settings.h"
#include "support/Events.h"
#include <QApplication>
#include <QCheckBox>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QToolTip>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

/// A station with "Data Settings" open.
class DataSettingsWindow : public DesktopStation
{
public:
    DataSettingsWindow()
    {
        Session.Settings.Framing = {QStringLiteral("[2]"), QStringLiteral(","),
                                    QStringLiteral("<b>")};
        Session.Settings.BufferData = true;
        Session.Settings.Filters.Esc = true;
        Load();
        Choose("cmdDelimiters");
        Dialog = &Get<frmToolbar>("frmToolbar");
    }

    template <typename Control>
    Control& On(const char* name)
    {
        return Named<Control>(*Dialog, name);
    }
    QLineEdit& Box(const char* name) { return On<QLineEdit>(name); }
    bool ComesToClose()
    {
        return EventsUntil([&] { return Dialog.isNull(); });
    }
    QString Stored(const char* key) const
    {
        return ReadProfileValue(SettingsPath(Session.ProgramFolder), SessionSection(Session),
                                QLatin1StringView(key), QStringLiteral("(absent)"));
    }

    QPointer<frmToolbar> Dialog;
};

TEST(DataSettingsWindow, ShowsWhatTheSessionHas)
{
    DataSettingsWindow station;
    EXPECT_TRUE(station.Dialog->isVisible());
    EXPECT_FALSE(station.Dialog->isModal());
    EXPECT_EQ(station.Dialog->windowTitle(), QStringLiteral("Data Settings"));
    EXPECT_EQ(station.Box("txtStart").text(), QStringLiteral("[2]"));
    EXPECT_EQ(station.Box("txtDelim").text(), QStringLiteral(","));
    EXPECT_EQ(station.Box("txtEnd").text(), QStringLiteral("<b>"));
    EXPECT_TRUE(station.On<QCheckBox>("chkBuffer").isChecked());
    const auto& filters = station.On<QListWidget>("lstFilters");
    ASSERT_EQ(filters.count(), 9);
    for (int row = 0; row < filters.count(); ++row) {
        const bool isEscape = filters.item(row)->text() == QStringLiteral("Filter (Esc)");
        EXPECT_EQ(filters.item(row)->checkState(), isEscape ? Qt::Checked : Qt::Unchecked) << row;
    }
}

TEST(DataSettingsWindow, IsPlacedByTheSizeOfTheMainWindowOnly)
{
    DataSettingsWindow station;
    const QSize main = station.Window.frameSize();
    const QSize own = station.Dialog->size();
    EXPECT_EQ(station.Dialog->pos(),
              QPoint((main.width() - own.width()) / 2, (main.height() - own.height()) / 2 - 13));
    station.Dialog->close();
    ASSERT_TRUE(station.ComesToClose());
    station.Window.move(300, 250);
    station.Choose("cmdDelimiters");
    EXPECT_EQ(station.Get<frmToolbar>("frmToolbar").pos(),
              QPoint((main.width() - own.width()) / 2, (main.height() - own.height()) / 2 - 13));
}

TEST(DataSettingsWindow, AToolTipIsDecodedFromTheFirstChangeOn)
{
    DataSettingsWindow station;
    for (const char* name : {"txtStart", "txtDelim", "txtEnd"}) {
        QLineEdit& box = station.Box(name);
        EXPECT_EQ(box.toolTip(), QStringLiteral("Value is ") + box.text() + QStringLiteral("  "));
        box.setText(QStringLiteral("[41]|"));
        EXPECT_EQ(box.toolTip(), QStringLiteral("Value is A|  ")) << name;
        box.clear();
        EXPECT_EQ(box.toolTip(), QStringLiteral("Value is   ")) << name;
    }
}

TEST(DataSettingsWindow, AToolTipShowsADelimiterThatLooksLikeMarkup)
{
    DataSettingsWindow station;
    QLineEdit& box = station.Box("txtEnd");
    QHelpEvent hover(QEvent::ToolTip, QPoint(2, 2), box.mapToGlobal(QPoint(2, 2)));
    QCoreApplication::sendEvent(&box, &hover);
    EXPECT_TRUE(QToolTip::text().contains(QStringLiteral("&lt;b&gt;")));
    QToolTip::hideText();
}

TEST(DataSettingsWindow, ATickedFilterStaysAfterACancel)
{
    DataSettingsWindow station;
    station.On<QListWidget>("lstFilters").item(0)->setCheckState(Qt::Checked);
    station.On<QListWidget>("lstFilters").item(3)->setCheckState(Qt::Unchecked);
    station.Press("cmdCancel");
    EXPECT_TRUE(station.ComesToClose());
    EXPECT_TRUE(station.Session.Settings.Filters.Cr);
    EXPECT_FALSE(station.Session.Settings.Filters.Esc);
    EXPECT_EQ(station.Stored("Filter_Cr"), QStringLiteral("True"));
    EXPECT_EQ(station.Stored("Filter_Esc"), QStringLiteral("False"));
}

TEST(DataSettingsWindow, TheSpaceBarTicksTheFilterOfTheRow)
{
    DataSettingsWindow station;
    auto& filters = station.On<QListWidget>("lstFilters");
    const QStringList keys{QStringLiteral("Filter_Cr"),     QStringLiteral("Filter_Lf"),
                           QStringLiteral("Filter_Tab"),    QStringLiteral("Filter_Esc"),
                           QStringLiteral("Filter_Null"),   QStringLiteral("Filter_Space"),
                           QStringLiteral("Filter_CtrlC"),  QStringLiteral("Filter_CtrlBreak"),
                           QStringLiteral("Filter_NewPage")};
    ASSERT_EQ(filters.count(), keys.size());
    for (int row = 0; row < filters.count(); ++row) {
        filters.setCurrentRow(row);
        const bool before = filters.item(row)->checkState() == Qt::Checked;
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "));
        QCoreApplication::sendEvent(&filters, &press);
        EXPECT_EQ(station.Stored(keys[row].toLatin1().constData()),
                  before ? QStringLiteral("False") : QStringLiteral("True"))
            << row;
    }
}

TEST(DataSettingsWindow, AFilterActsOnTheNextRecordWhileTheDialogIsOpen)
{
    DataSettingsWindow station;
    station.Session.Settings.Framing = {QStringLiteral("<"), QStringLiteral("+"),
                                        QStringLiteral(">")};
    ProcessStream(station.Session, QStringLiteral("<a\tb>"));
    EXPECT_EQ(station.Session.FieldValues.Item(1), QStringLiteral("a\tb"));
    station.On<QListWidget>("lstFilters").item(2)->setCheckState(Qt::Checked);
    ProcessStream(station.Session, QStringLiteral("<a\tb>"));
    EXPECT_EQ(station.Session.FieldValues.Item(1), QStringLiteral("a b"));
}

TEST(DataSettingsWindow, DelimitersAndBufferingAreStoredByTheButton)
{
    DataSettingsWindow station;
    station.Box("txtStart").setText(QStringLiteral("{"));
    station.Box("txtDelim").setText(QStringLiteral("+,"));
    station.Box("txtEnd").setText(QStringLiteral("}"));
    station.On<QCheckBox>("chkBuffer").click();
    EXPECT_EQ(station.Session.Settings.Framing.DataStart, QStringLiteral("[2]"));
    EXPECT_EQ(station.Session.Settings.Framing.DataSeperator, QStringLiteral(","));
    EXPECT_EQ(station.Session.Settings.Framing.DataEnd, QStringLiteral("<b>"));
    EXPECT_TRUE(station.Session.Settings.BufferData);
    EXPECT_EQ(station.Stored("DataStart"), QStringLiteral("(absent)"));
    station.Press("cmdOk");
    EXPECT_TRUE(station.ComesToClose());
    EXPECT_EQ(station.Session.Settings.Framing.DataStart, QStringLiteral("{"));
    EXPECT_EQ(station.Session.Settings.Framing.DataSeperator, QStringLiteral("+,"));
    EXPECT_EQ(station.Session.Settings.Framing.DataEnd, QStringLiteral("}"));
    EXPECT_FALSE(station.Session.Settings.BufferData);
    EXPECT_EQ(station.Stored("DataStart"), QStringLiteral("{"));
    EXPECT_EQ(station.Stored("DataSeperator"), QStringLiteral("+,"));
    EXPECT_EQ(station.Stored("DataEnd"), QStringLiteral("}"));
    EXPECT_EQ(station.Stored("BufferData"), QStringLiteral("False"));
}

TEST(DataSettingsWindow, ACancelLeavesDelimitersAsTheyWere)
{
    DataSettingsWindow station;
    station.Box("txtStart").setText(QStringLiteral("{"));
    station.Press("cmdCancel");
    EXPECT_TRUE(station.ComesToClose());
    EXPECT_EQ(station.Session.Settings.Framing.DataStart, QStringLiteral("[2]"));
    EXPECT_EQ(station.Stored("DataStart"), QStringLiteral("(absent)"));
}

TEST(DataSettingsWindow, DefaultsFillTheBoxesAndAreStoredByTheButton)
{
    DataSettingsWindow station;
    station.Press("cmdDefault");
    EXPECT_EQ(station.Box("txtStart").text(), QStringLiteral("<"));
    EXPECT_EQ(station.Box("txtDelim").text(), QStringLiteral("+"));
    EXPECT_EQ(station.Box("txtEnd").text(), QStringLiteral(">"));
    EXPECT_FALSE(station.On<QCheckBox>("chkBuffer").isChecked());
    // A filter acts at once, so values that are stored later must not change it.
    EXPECT_TRUE(station.Session.Settings.Filters.Esc);
    EXPECT_EQ(station.Session.Settings.Framing.DataStart, QStringLiteral("[2]"));
    station.Press("cmdOk");
    EXPECT_EQ(station.Session.Settings.Framing.DataStart, QStringLiteral("<"));
    EXPECT_EQ(station.Stored("DataEnd"), QStringLiteral(">"));
}

TEST(DataSettingsWindow, NothingStopsEmptyOrEqualDelimiters)
{
    DataSettingsWindow station;
    station.Box("txtStart").setText(QStringLiteral("|"));
    station.Box("txtDelim").clear();
    station.Box("txtEnd").setText(QStringLiteral("|"));
    station.Press("cmdOk");
    EXPECT_EQ(station.Session.Settings.Framing.DataStart, QStringLiteral("|"));
    EXPECT_EQ(station.Session.Settings.Framing.DataSeperator, QString());
    EXPECT_EQ(station.Session.Settings.Framing.DataEnd, QStringLiteral("|"));
    EXPECT_TRUE(station.Operator.AppMessages.isEmpty());
}

} // namespace
} // namespace vantrel::test
