#include "desktop/EveryWindow.h"
#include "desktop/controls/Contrast.h"
#include "desktop/controls/DesktopControls.h"
#include "desktop/controls/DesktopStyle.h"
#include "desktop/dialogs/frmPrinters2.h"
#include "desktop/dialogs/frmWizard.h"
#include "desktop/window/frmNav.h"
#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOptionButton>
#include <QToolButton>
#include <QTreeWidget>
#include <gtest/gtest.h>
#include <map>
#include <utility>

namespace vantrel::test {
namespace {

constexpr double LeastOfText = 4.5;
constexpr double LeastOfShapes = 3;

/// The colours of a desktop, for one test.
class Desktop
{
public:
    explicit Desktop(bool dark) : m_before(QApplication::palette())
    {
        DesktopStyle::Install();
        if (dark)
            QApplication::setPalette(DarkPalette());
        // Open windows follow with the next events.
        QCoreApplication::processEvents();
    }
    ~Desktop() { QApplication::setPalette(m_before); }
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;

private:
    QPalette m_before;
};

class Looks : public ::testing::TestWithParam<WindowRow>
{};

/// The contrast of what is drawn with the commonest colour around it.
double ContrastIn(const QImage& picture)
{
    std::map<QRgb, int> counts;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            ++counts[picture.pixel(x, y)];
    }
    if (counts.empty())
        return 1;
    const auto ground =
        std::ranges::max_element(counts, {}, [](const auto& row) { return row.second; });
    double most = 1;
    for (const auto& [color, count] : counts)
        most = std::max(most, Contrast(QColor(color), QColor(ground->first)));
    return most;
}

/// A part of a window as it is shown, in the picture's own pixels.
QImage Seen(QWidget& window, const QWidget& widget, const QRect& part)
{
    const QRect place(widget.mapTo(&window, part.topLeft()), part.size());
    return window.grab(place).toImage();
}

void ExpectTextsLegible(QWidget& window)
{
    const auto expect = [&](const QWidget& widget, const QString& text) {
        if (!text.trimmed().isEmpty() && widget.isEnabled()) {
            EXPECT_GE(ContrastIn(Seen(window, widget, widget.rect().adjusted(3, 3, -3, -3))),
                      LeastOfText)
                << Told(widget) << ": " << text.toStdString();
        }
    };
    for (const auto* label : Shown<QLabel>(window))
        expect(*label, label->text());
    for (const auto* button : Shown<QAbstractButton>(window))
        expect(*button, button->text());
    for (const auto* line : Shown<QLineEdit>(window))
        expect(*line, line->text().isEmpty() ? line->placeholderText() : QString());
    for (const auto* list : Shown<QAbstractItemView>(window)) {
        if (IsPartOfControl(*list) || list->model() == nullptr || list->model()->rowCount() == 0)
            continue;
        const QRect row = list->visualRect(list->model()->index(0, 0));
        // The control may be selected, and the desktop has chosen the colours for that state.
        EXPECT_GE(ContrastIn(Seen(window, *list->viewport(), row)), LeastOfShapes) << Told(*list);
    }
}

TEST_P(Looks, TextsAreLegibleOnLightAndOnDark)
{
    for (const bool dark : {false, true}) {
        SCOPED_TRACE(dark ? "dark" : "light");
        const Desktop desktop(dark);
        FullStation station;
        QWidget& window = OpenActive(GetParam(), station);
        OnEachFace(window, [&] { ExpectTextsLegible(window); });
    }
}

/// Room that a control lacks for its text, in pixels of width and height.
QSize LackingRoom(const QWidget& widget)
{
    QSize wanted = widget.minimumSizeHint();
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
        wanted = label->sizeHint();
        if (label->wordWrap())
            wanted = QSize(0, label->heightForWidth(label->width()));
    }
    return (wanted - widget.size()).expandedTo(QSize(0, 0));
}

TEST_P(Looks, NoTextIsCutOff)
{
    FullStation station;
    QWidget& window = OpenActive(GetParam(), station);
    OnEachFace(window, [&] {
        for (const QWidget* widget : Shown<QWidget>(window)) {
            const auto* button = qobject_cast<const QAbstractButton*>(widget);
            const auto* label = qobject_cast<const QLabel*>(widget);
            const bool hasText = (button != nullptr && !button->text().isEmpty()) ||
                                 (label != nullptr && !label->text().isEmpty()) ||
                                 qobject_cast<const QGroupBox*>(widget) != nullptr;
            // A panel cuts its text off rather than widening the window, and shows the whole text
            // in a tool tip.
            if (!hasText || widget->sizePolicy().horizontalPolicy() == QSizePolicy::Ignored)
                continue;
            EXPECT_EQ(LackingRoom(*widget), QSize(0, 0)) << Told(*widget);
        }
        for (const auto* list : Shown<QListWidget>(window)) {
            // Names that operators choose may be of any length; those of the station have room.
            if (list->objectName() == QStringLiteral("lstPorts") ||
                list->objectName() == QStringLiteral("lstFilters")) {
                EXPECT_LE(list->sizeHintForColumn(0), list->viewport()->width()) << Told(*list);
            }
        }
    });
}

INSTANTIATE_TEST_SUITE_P(OfEveryWindow, Looks, ::testing::ValuesIn(EveryWindow()), NameOfWindow);

/// The indicator of a check box or option button, empty, as it shows.
template <typename Button>
QImage EmptyIndicator()
{
    QWidget window;
    auto* button = new Button(&window);
    QStyleOptionButton option;
    option.initFrom(button);
    const auto part = qobject_cast<QCheckBox*>(button) != nullptr ? QStyle::SE_CheckBoxIndicator
                                                                  : QStyle::SE_RadioButtonIndicator;
    window.resize(40, 40);
    button->resize(40, 40);
    option.rect = button->rect();
    const QRect indicator = button->style()->subElementRect(part, &option, button);
    return Seen(window, *button, indicator);
}

TEST(LooksOnDark, EmptyCheckBoxesAndOptionButtonsHaveAnOutline)
{
    const Desktop desktop(true);
    EXPECT_GE(ContrastIn(EmptyIndicator<QCheckBox>()), LeastOfShapes);
    EXPECT_GE(ContrastIn(EmptyIndicator<QRadioButton>()), LeastOfShapes);
}

TEST(LooksOnDark, EmptyCheckBoxesOfListsHaveAnOutline)
{
    const Desktop desktop(true);
    QListWidget list;
    auto* item = new QListWidgetItem(&list);
    item->setCheckState(Qt::Unchecked);
    list.show();
    EXPECT_GE(ContrastIn(Seen(list, *list.viewport(), list.visualItemRect(item))), LeastOfShapes);
}

TEST(LooksOnDark, TheStyleOfADesktopIsLeftAlone)
{
    QApplication::setStyle(QStringLiteral("windows"));
    const QStyle* theirs = QApplication::style();
    DesktopStyle::Install();
    EXPECT_EQ(QApplication::style(), theirs);
    // The tests that follow use Qt's own style, which is the one that the station corrects.
    QApplication::setStyle(QStringLiteral("fusion"));
}

/// The contrast of an icon's lines with a background.
double ContrastOf(const QIcon& icon, const QColor& ground)
{
    const QImage drawn = icon.pixmap(QSize(32, 32), 1.0).toImage();
    double most = 1;
    for (int y = 0; y < drawn.height(); ++y) {
        for (int x = 0; x < drawn.width(); ++x) {
            const QColor color = drawn.pixelColor(x, y);
            if (color.alpha() == 255)
                most = std::max(most, Contrast(color, ground));
        }
    }
    return most;
}

/// Desktops change their colours while the station runs.
class LooksWhenColoursChange : public ::testing::Test
{
protected:
    FullStation Station;
};

TEST_F(LooksWhenColoursChange, TheNavigatorDrawsItsIconsAnew)
{
    const auto& nav = Station.Get<frmNav>("frmNav");
    for (const bool dark : {true, false}) {
        const Desktop desktop(dark);
        const QColor ground = nav.palette().color(QPalette::Window);
        const auto buttons = nav.findChildren<QToolButton*>();
        EXPECT_EQ(buttons.size(), 6);
        for (const auto* button : buttons)
            EXPECT_GE(ContrastOf(button->icon(), ground), LeastOfText) << Told(*button);
    }
}

TEST_F(LooksWhenColoursChange, TheNavigatorIsSeenOnEveryColourOfTheWorkspace)
{
    auto& nav = Station.Get<frmNav>("frmNav");
    for (const QColor ground : {QColor(Qt::black), QColor(Qt::white), QColor(Qt::darkBlue),
                                QColor(Qt::yellow), QColor(0x80, 0x80, 0x80)}) {
        nav.TakeColor(ground);
        for (const auto* button : nav.findChildren<QToolButton*>())
            EXPECT_GE(ContrastOf(button->icon(), ground), LeastOfShapes)
                << ground.name().toStdString();
    }
}

TEST_F(LooksWhenColoursChange, PrinterIconsAreDrawnAnew)
{
    OpenPrinterSelection(Station.Session, &Station.Window);
    const auto& printers = Station.Get<QTreeWidget>("lvwPrinters");
    ASSERT_EQ(printers.topLevelItemCount(), 2);
    const Desktop desktop(true);
    for (int row = 0; row < printers.topLevelItemCount(); ++row)
        EXPECT_GE(ContrastOf(printers.topLevelItem(row)->icon(0),
                             printers.palette().color(QPalette::Base)),
                  LeastOfText);
}

TEST_F(LooksWhenColoursChange, TheCardsOfTheWizardAreDrawnAnew)
{
    auto& wizard = OpenDialog<frmWizard>(Station.Session, &Station.Window);
    std::map<std::string, qint64> before;
    for (const char* name : {"imgP", "imgL"})
        before[name] = DesktopStation::Named<QToolButton>(wizard, name).icon().cacheKey();
    for (const bool dark : {true, false}) {
        const Desktop desktop(dark);
        const QColor ground = wizard.palette().color(QPalette::Button);
        for (const char* name : {"imgP", "imgL"}) {
            const QIcon icon = DesktopStation::Named<QToolButton>(wizard, name).icon();
            EXPECT_NE(icon.cacheKey(), std::exchange(before[name], icon.cacheKey())) << name;
            EXPECT_GE(ContrastOf(icon, ground), LeastOfShapes) << name << (dark ? " dark" : "");
        }
    }
}

} // namespace
} // namespace vantrel::test
