#include "desktop/EveryWindow.h"
#include "desktop/composers/DesktopElementTree.h"
#include "desktop/controls/DesktopStyle.h"
#include "desktop/controls/DesktopUpDown.h"
#include "station/session/BufferedRecord.h"
#include "support/Events.h"
#include <QAbstractItemView>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <map>

namespace vantrel::test {
namespace {

/// Pixels between a row's text or box and those of the next row.
constexpr int LeastAir = 6;
/// Characters of a name that a list shows without being scrolled or widened.
constexpr int LeastCharacters = 18;

/// How the windows look on a desktop that has no style of its own.
class Tidiness : public ::testing::TestWithParam<WindowRow>
{
protected:
    Tidiness()
    {
        DesktopStyle::Install();
        Station.Session.Settings.Framing = {QStringLiteral("<"), QStringLiteral("+"),
                                            QStringLiteral(">")};
        QString record = QStringLiteral("<Anna+1234>");
        BufferRecord(Station.Session.RecordQueue, Station.Session.Settings, record);
    }

    QWidget& Open() { return OpenActive(GetParam(), Station); }

    /// The window's lists that have a row to look at.
    static QList<QAbstractItemView*> FilledLists(const QWidget& window)
    {
        QList<QAbstractItemView*> lists;
        for (auto* list : Shown<QAbstractItemView>(window)) {
            if (!IsPartOfControl(*list) && list->model() != nullptr &&
                list->model()->rowCount() > 0)
                lists.append(list);
        }
        return lists;
    }
    static QModelIndex FirstRow(const QAbstractItemView& list) { return list.model()->index(0, 0); }
    static int RowHeight(const QAbstractItemView& list)
    {
        return list.visualRect(FirstRow(list)).height();
    }

    FullStation Station;
};

TEST_P(Tidiness, RowsOfListsHaveSpaceBetweenThem)
{
    QWidget& window = Open();
    OnEachFace(window, [&] {
        for (const auto* list : FilledLists(window)) {
            int tallest = list->fontMetrics().height();
            if (FirstRow(*list).data(Qt::CheckStateRole).isValid()) {
                tallest = std::max(tallest, list->style()->pixelMetric(QStyle::PM_IndicatorHeight));
            }
            EXPECT_GE(RowHeight(*list), tallest + LeastAir) << Told(*list);
        }
    });
}

TEST_P(Tidiness, RowsOfAllListsHaveTheSameHeight)
{
    // The height that the style gives to a row of text only.
    QListWidget plain;
    plain.addItem(QStringLiteral("Badge"));
    QWidget& window = Open();
    OnEachFace(window, [&] {
        for (const auto* list : FilledLists(window)) {
            // Elements are shown as they stand in a row, which is taller than a text.
            if (qobject_cast<const DesktopElementTree*>(list) == nullptr) {
                EXPECT_EQ(RowHeight(*list), plain.sizeHintForRow(0)) << Told(*list);
            }
        }
    });
}

TEST_P(Tidiness, ListsShowMoreThanTheBeginningOfAName)
{
    QWidget& window = Open();
    OnEachFace(window, [&] {
        for (const auto* list : Shown<QAbstractItemView>(window)) {
            if (!IsPartOfControl(*list)) {
                EXPECT_GE(list->viewport()->width(),
                          LeastCharacters * list->fontMetrics().averageCharWidth())
                    << Told(*list);
            }
        }
    });
}

/// The commonest colour of a picture.
QRgb GroundOf(const QImage& picture)
{
    std::map<QRgb, int> counts;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            ++counts[picture.pixel(x, y)];
    }
    return std::ranges::max_element(counts, {}, [](const auto& row) { return row.second; })->first;
}

TEST_P(Tidiness, NoRowLooksChosenWhereNoneIs)
{
    QWidget& window = Open();
    OnEachFace(window, [&] {
        for (auto* list : FilledLists(window)) {
            list->setFocus();
            list->clearSelection();
            const QModelIndex row = FirstRow(*list);
            list->selectionModel()->setCurrentIndex(row, QItemSelectionModel::NoUpdate);
            const QImage seen = list->viewport()->grab(list->visualRect(row)).toImage();
            EXPECT_EQ(GroundOf(seen), list->palette().color(QPalette::Base).rgb()) << Told(*list);
        }
    });
}

/// Twice the middle height of a widget in its window.
int MiddleOf(const QWidget& widget, const QWidget& window)
{
    return 2 * widget.mapTo(&window, QPoint(0, 0)).y() + widget.height();
}

bool StandLeftAndRight(const QWidget& left, const QWidget& right, const QWidget& window)
{
    return left.mapTo(&window, QPoint(left.width(), 0)).x() <= right.mapTo(&window, QPoint()).x();
}

TEST_P(Tidiness, CaptionsStandInLineWithTheirFields)
{
    QWidget& window = Open();
    OnEachFace(window, [&] {
        for (const auto* label : Shown<QLabel>(window)) {
            const QWidget* field = label->buddy();
            if (field != nullptr && field->isVisible() &&
                StandLeftAndRight(*label, *field, window)) {
                EXPECT_LE(std::abs(MiddleOf(*label, window) - MiddleOf(*field, window)), 2)
                    << label->text().toStdString();
            }
        }
    });
}

TEST_P(Tidiness, FieldsAreAsTallAsTheirArrows)
{
    QWidget& window = Open();
    OnEachFace(window, [&] {
        for (const auto* arrows : Shown<DesktopUpDown>(window)) {
            const QRect buttons(arrows->mapTo(&window, arrows->childrenRect().topLeft()),
                                arrows->childrenRect().size());
            for (const auto* field : Shown<QLineEdit>(window)) {
                const QRect place(field->mapTo(&window, QPoint(0, 0)), field->size());
                if (!StandLeftAndRight(*field, *arrows, window) || place.bottom() < buttons.top() ||
                    place.top() > buttons.bottom())
                    continue;
                EXPECT_EQ(place.top(), buttons.top()) << Told(*field);
                EXPECT_EQ(place.bottom(), buttons.bottom()) << Told(*field);
            }
        }
    });
}

TEST_P(Tidiness, TitlesAreShownWhole)
{
    const QWidget& window = Open();
    // Around it stand an icon and three buttons.
    constexpr int besideTitle = 100;
    QFont font = QApplication::font("QMdiSubWindowTitleBar");
    font.setBold(true);
    EXPECT_GE(window.width(),
              QFontMetrics(font).horizontalAdvance(window.windowTitle().trimmed()) + besideTitle)
        << window.windowTitle().toStdString();
}

INSTANTIATE_TEST_SUITE_P(OfEveryWindow, Tidiness, ::testing::ValuesIn(EveryWindow()), NameOfWindow);

/// A window that is placed by the middle of the main window, and how far above that, twips.
struct PlaceRow
{
    const char* Window;
    int LiftTwips;
};

constexpr PlaceRow Places[] = {
    {"frmEncoding", 200},   {"frmForms", 500},  {"frmMessageOk", 0},
    {"frmMessageYesNo", 0}, {"frmSendData", 0}, {"frmWizard", 500},
};

TEST(Places, CentreAWindowWithItsFrameOverTheMainWindow)
{
    constexpr int twipsOfPixel = 15;
    for (const PlaceRow& place : Places) {
        for (const WindowRow& row : EveryWindow()) {
            if (std::string_view(row.Name) != place.Window)
                continue;
            FullStation station;
            const QWidget& window = OpenActive(row, station);
            const QPoint off =
                window.frameGeometry().center() - station.Window.frameGeometry().center();
            EXPECT_LE(std::abs(off.x()), 1) << place.Window;
            EXPECT_LE(std::abs(off.y() + place.LiftTwips / twipsOfPixel), 1) << place.Window;
        }
    }
}

} // namespace
} // namespace vantrel::test
