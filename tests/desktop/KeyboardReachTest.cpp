#include "desktop/EveryWindow.h"
#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <algorithm>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

/// Windows used by the keyboard alone.
class KeyboardReach : public ::testing::TestWithParam<WindowRow>
{
protected:
    QWidget& Open() { return OpenActive(GetParam(), Station); }

    static QWidget* Focus() { return QApplication::focusWidget(); }
    static void Press(Qt::Key key)
    {
        QTest::keyClick(QApplication::focusWindow(), key);
        QCoreApplication::processEvents();
    }
    /// The controls that the Tab key visits, once around.
    static QList<QWidget*> TabRound(QWidget& window)
    {
        QList<QWidget*> round;
        const qsizetype most = window.findChildren<QWidget*>().size();
        // A text with a link handles the key once more itself.
        for (qsizetype press = 0; press <= 2 * most; ++press) {
            Press(Qt::Key_Tab);
            if (Focus() == nullptr || (round.size() > 1 && Focus() == round.first()))
                break;
            if (!round.contains(Focus()))
                round.append(Focus());
        }
        return round;
    }

    FullStation Station;
};

bool TakesTab(const QWidget& widget)
{
    const QWidget* proxy = widget.focusProxy();
    return widget.isEnabled() && (widget.focusPolicy() & Qt::TabFocus) != 0 && proxy == nullptr &&
           !IsPartOfControl(widget);
}

TEST_P(KeyboardReach, TabVisitsEveryControl)
{
    QWidget& window = Open();
    OnEachFace(window, [&] {
        const QList<QWidget*> round = TabRound(window);
        for (QWidget* widget : Shown<QWidget>(window)) {
            if (TakesTab(*widget)) {
                EXPECT_TRUE(round.contains(widget)) << Told(*widget);
            }
        }
    });
}

/// Whether an eye that reads rows from top to bottom, or columns from left to right, is at `second`
/// before it is at `first`.
bool StandsBefore(const QRect& second, const QRect& first)
{
    const bool sameColumn = second.left() <= first.right() && first.left() <= second.right();
    const bool sameLine = second.top() <= first.bottom() && first.top() <= second.bottom();
    return (sameColumn && second.bottom() < first.top()) ||
           (sameLine && second.right() < first.left());
}

/// Describes each control that comes in the order after a control that is read later.
std::string ReadWrongly(const QList<QWidget*>& order, const QWidget& window)
{
    const auto place = [&](const QWidget* widget) {
        return QRect(widget->mapTo(&window, QPoint(0, 0)), widget->size());
    };
    std::string wrong;
    for (qsizetype later = 1; later < order.size(); ++later) {
        for (qsizetype sooner = 0; sooner < later; ++sooner) {
            if (StandsBefore(place(order[later]), place(order[sooner])))
                wrong += Told(*order[later]) + " comes after " + Told(*order[sooner]) + "; ";
        }
    }
    return wrong;
}

TEST_P(KeyboardReach, TabFollowsTheReadingOrder)
{
    QWidget& window = Open();
    OnEachFace(window, [&] {
        // Disabled controls need their place in the order too, for when they are enabled.
        for (QWidget* widget : Shown<QWidget>(window))
            widget->setEnabled(true);
        // The order begins where the focus was, so it must fit from one of its beginnings.
        QList<QWidget*> round = TabRound(window);
        std::string wrong = ReadWrongly(round, window);
        for (qsizetype turn = 1; turn < round.size() && !wrong.empty(); ++turn) {
            std::rotate(round.begin(), round.begin() + 1, round.end());
            wrong =
                std::min(wrong, ReadWrongly(round, window),
                         [](const auto& one, const auto& two) { return one.size() < two.size(); });
        }
        EXPECT_EQ(wrong, "");
    });
}

TEST_P(KeyboardReach, EscapeLeavesADialogThatCanBeLeft)
{
    const QPointer<QWidget> window = &Open();
    Press(Qt::Key_Escape);
    const std::string name = GetParam().Name;
    const bool stays = name == "frmMain" || name == "frmMessageOk";
    EXPECT_EQ(!window.isNull() && window->isVisible(), stays);
}

TEST_P(KeyboardReach, EnterPressesTheDefaultButton)
{
    QWidget& window = Open();
    QPushButton* standard = nullptr;
    for (QPushButton* button : Shown<QPushButton>(window)) {
        if (button->isDefault() && qobject_cast<QPushButton*>(Focus()) == nullptr) {
            EXPECT_EQ(standard, nullptr) << Told(*button);
            standard = button;
        }
    }
    if (standard == nullptr || !standard->isEnabled())
        return;
    // A list of elements takes the key for itself.
    if (auto* line = window.findChild<QLineEdit*>())
        line->setFocus();
    int presses = 0;
    // What the button itself does is tested elsewhere.
    standard->disconnect();
    QObject::connect(standard, &QPushButton::clicked, standard, [&] { ++presses; });
    Press(Qt::Key_Return);
    EXPECT_EQ(presses, 1) << Told(*standard);
}

INSTANTIATE_TEST_SUITE_P(OfEveryWindow, KeyboardReach, ::testing::ValuesIn(EveryWindow()),
                         NameOfWindow);

} // namespace
} // namespace vantrel::test
