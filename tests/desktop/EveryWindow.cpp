#include "desktop/EveryWindow.h"
#include "desktop/camera/frmAquireImage2.h"
#include "desktop/camera/frmTakePhoto.h"
#include "desktop/composers/frmEncoding.h"
#include "desktop/composers/frmPad.h"
#include "desktop/composers/frmSerialize.h"
#include "desktop/controls/DesktopControls.h"
#include "desktop/designer/frmObjects.h"
#include "desktop/designer/frmPlace.h"
#include "desktop/designer/frmSize.h"
#include "desktop/dialogs/frmAbout.h"
#include "desktop/dialogs/frmCheck.h"
#include "desktop/dialogs/frmCode.h"
#include "desktop/dialogs/frmCommSettings.h"
#include "desktop/dialogs/frmFilters.h"
#include "desktop/dialogs/frmForms.h"
#include "desktop/dialogs/frmGetLayout.h"
#include "desktop/dialogs/frmMacro.h"
#include "desktop/dialogs/frmOptions.h"
#include "desktop/dialogs/frmPreSuffix.h"
#include "desktop/dialogs/frmPrinters2.h"
#include "desktop/dialogs/frmRawData.h"
#include "desktop/dialogs/frmSendData.h"
#include "desktop/dialogs/frmShrink.h"
#include "desktop/dialogs/frmToolbar.h"
#include "desktop/dialogs/frmWizard.h"
#include "desktop/history/frmHistory.h"
#include "desktop/window/frmMessage.h"
#include "desktop/window/frmStatus.h"
#include "ledger/LedgerTables.h"
#include "station/layout/PageDescription.h"
#include "station/session/BufferedRecord.h"
#include "store/Recordset.h"
#include "support/Events.h"
#include "support/Layouts.h"
#include "support/LedgerFill.h"
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QListWidget>
#include <QMdiArea>
#include <QScrollBar>
#include <QStackedWidget>
#include <QTabWidget>
#include <QTableView>

namespace vantrel::test {

namespace {

struct Ink
{
    QPalette::ColorRole Role;
    QRgb Dark;
};

/// What desktops with a dark theme give.
constexpr Ink DarkInks[] = {
    {QPalette::Window, 0x2b2b2b},
    {QPalette::WindowText, 0xeeeeee},
    {QPalette::Base, 0x1e1e1e},
    {QPalette::AlternateBase, 0x262626},
    {QPalette::Text, 0xeeeeee},
    {QPalette::Button, 0x353535},
    {QPalette::ButtonText, 0xeeeeee},
    {QPalette::BrightText, 0xff5555},
    {QPalette::Highlight, 0x2a6fb8},
    {QPalette::HighlightedText, 0xffffff},
    {QPalette::ToolTipBase, 0x353535},
    {QPalette::ToolTipText, 0xeeeeee},
    {QPalette::Link, 0x6cb2f7},
    {QPalette::LinkVisited, 0xc792ea},
    {QPalette::PlaceholderText, 0xa0a0a0},
};

template <typename Dialog>
QWidget& Open(DesktopStation& station)
{
    return OpenDialog<Dialog>(station.Session, &station.Window);
}

/// A window of the design tools.
template <typename Dialog>
QWidget& OpenTool(DesktopStation& station)
{
    station.Session.Options.DesignTools = true;
    return OpenDialog<Dialog>(station.Session, &station.Window);
}

/// The history with an entry chosen.
QWidget& OpenHistory(DesktopStation& station)
{
    auto& window = OpenDialog<frmHistory>(station.Session, &station.Window);
    auto& list = DesktopStation::Named<QTableView>(window, "lstEntries");
    auto& cards = DesktopStation::Named<QListWidget>(window, "lstCards");
    EventsUntil([&] { return list.model()->rowCount() > 0; });
    list.selectRow(0);
    EventsUntil([&] { return cards.count() > 0; });
    return window;
}

/// The check of a layout with a text that is too long and a picture that is not there.
QWidget& OpenCheck(DesktopStation& station)
{
    AddText(station.Session, QStringLiteral("Friends of the museum"), {1500, 400, 300, 900});
    AddImage(station.Session, QStringLiteral("/pictures/logo.png"), {2000, 400, 900, 900});
    return OpenDialog<frmCheck>(station.Session, &station.Window);
}

QWidget& OpenMain(DesktopStation& station)
{
    return station.Window;
}

QWidget& OpenPad(DesktopStation& station)
{
    auto* pad = new frmPad(station.Session, &station.Window);
    pad->show();
    return *pad;
}

/// The same where it shows the last record's value.
QWidget& OpenPadTools(DesktopStation& station)
{
    station.Session.Options.DesignTools = true;
    return OpenPad(station);
}

QWidget& OpenPrinters(DesktopStation& station)
{
    OpenPrinterSelection(station.Session, &station.Window);
    return station.Get<frmPrinters2>("frmPrinters2");
}

template <AppMessageButtons Buttons>
QWidget& OpenMessage(DesktopStation& station)
{
    auto* box = new frmMessage(QStringLiteral("Delete the layout Badge?"),
                               QStringLiteral("Delete Layout"), Buttons, &station.Window);
    box->show();
    return *box;
}

constexpr WindowRow Windows[] = {
    {"frmMain", OpenMain},
    {"frmAbout", Open<frmAbout>},
    {"frmAquireImage2", Open<frmAquireImage2>},
    {"frmCheck", OpenCheck},
    {"frmCode", Open<frmCode>},
    {"frmCommSettings", Open<frmCommSettings>},
    {"frmEncoding", Open<frmEncoding>},
    {"frmFilters", Open<frmFilters>},
    {"frmFiltersTools", OpenTool<frmFilters>},
    {"frmForms", Open<frmForms>},
    {"frmGetLayout", Open<frmGetLayout>},
    {"frmHistory", OpenHistory},
    {"frmMacro", Open<frmMacro>},
    {"frmMacroTools", OpenTool<frmMacro>},
    {"frmMessageOk", OpenMessage<AppMessageButtons::OkOnly>},
    {"frmMessageNoYes", OpenMessage<AppMessageButtons::NoYes>},
    {"frmMessageYesNo", OpenMessage<AppMessageButtons::YesNo>},
    {"frmObjects", OpenTool<frmObjects>},
    {"frmOptions", Open<frmOptions>},
    {"frmPad", OpenPad},
    {"frmPadTools", OpenPadTools},
    {"frmPlace", OpenTool<frmPlace>},
    {"frmPreSuffix", Open<frmPreSuffix>},
    {"frmPreSuffixTools", OpenTool<frmPreSuffix>},
    {"frmPrinters2", OpenPrinters},
    {"frmRawData", Open<frmRawData>},
    {"frmSendData", Open<frmSendData>},
    {"frmSerialize", Open<frmSerialize>},
    {"frmShrink", Open<frmShrink>},
    {"frmSize", Open<frmSize>},
    {"frmStatus", Open<frmStatus>},
    {"frmTakePhoto", Open<frmTakePhoto>},
    {"frmToolbar", Open<frmToolbar>},
    {"frmWizard", Open<frmWizard>},
};

/// Two records and the card of the first.
void FillLedger(Session& session)
{
    StoreDatabase& store = session.LayoutDb.Database();
    MakeLedgerTables(store);
    const PageDescription page = DescribePage(session.LayoutDb, session.CurrentLayoutName, 1);
    store.Change(QStringLiteral("INSERT INTO LedgerPages (Hash, Content) VALUES (?, ?)"),
                 {page.Hash, page.Content});
    for (const char* name : {"Anna", "Zo\u00eb"}) {
        LedgerEntry entry = PrintedEntry({QString::fromUtf8(name), QStringLiteral("1234")});
        entry.Cards[0].PageHash = page.Hash;
        AddLedgerEntry(store, entry);
    }
}

} // namespace

std::span<const WindowRow> EveryWindow()
{
    return Windows;
}

QPalette DarkPalette()
{
    QPalette palette(QColor(0x35, 0x35, 0x35), QColor(0x2b, 0x2b, 0x2b));
    for (const Ink& ink : DarkInks)
        palette.setColor(ink.Role, QColor(ink.Dark));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(0x80, 0x80, 0x80));
    return palette;
}

FullStation::FullStation()
{
    Printers.Install({QStringLiteral("Card Printer"), QStringLiteral("Front Desk")});
    WithLayout();
    Load();
    CardDocument& document = Session.Document;
    document.SelectedObject = document.Find(Family::lbl_DATA, 1);
    document.SelectedIndex = 1;
    document.SelectedFamily = QStringLiteral("lbl_DATA");
    Session.Face.SetPropertiesEnabled(true);
    Session.CurrentParams.Track1 = QStringLiteral("DAT1");
    Recordset macros(Session.LayoutDb);
    macros.Open(QStringLiteral("SELECT * FROM [Macros]"), CursorLock::Optimistic);
    macros.AddNew();
    macros.SetValue(QStringLiteral("ID"), 1);
    macros.SetValue(QStringLiteral("MacroName"), QStringLiteral("Both sides"));
    macros.Update();
    SetRecord(Session, {QStringLiteral("Anna"), QStringLiteral("1234")});
    FillLedger(Session);
}

void OnEachFace(QWidget& window, const std::function<void()>& look)
{
    if (auto* tabs = window.findChild<QTabWidget*>()) {
        for (int tab = 0; tab < tabs->count(); ++tab) {
            tabs->setCurrentIndex(tab);
            QCoreApplication::processEvents();
            look();
        }
    } else if (auto* pages = window.findChild<QStackedWidget*>()) {
        for (int page = 0; page < pages->count(); ++page) {
            pages->setCurrentIndex(page);
            QCoreApplication::processEvents();
            look();
        }
    } else {
        look();
    }
}

QWidget& OpenActive(const WindowRow& row, DesktopStation& station)
{
    QWidget& window = row.Open(station);
    window.activateWindow();
    EXPECT_TRUE(EventsUntil([&] { return QApplication::activeWindow() == &window; })) << row.Name;
    return window;
}

bool IsPartOfControl(const QWidget& widget)
{
    const QWidget* parent = widget.parentWidget();
    if (parent == nullptr)
        return false;
    if (qobject_cast<const QScrollBar*>(&widget) != nullptr)
        return qobject_cast<const QAbstractScrollArea*>(parent->parentWidget()) != nullptr;
    return qobject_cast<const QComboBox*>(parent) != nullptr ||
           qobject_cast<const QAbstractItemView*>(parent) != nullptr ||
           widget.objectName().startsWith(QStringLiteral("qt_"));
}

std::string Told(const QObject& object)
{
    return object.metaObject()->className() + std::string(" ") + object.objectName().toStdString();
}

} // namespace vantrel::test
