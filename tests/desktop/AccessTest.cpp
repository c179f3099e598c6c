#include "desktop/EveryWindow.h"
#include "desktop/composers/DesktopElementRow.h"
#include "desktop/composers/DesktopElementTree.h"
#include "desktop/controls/DesktopUpDown.h"
#include <QAccessible>
#include <QAccessibleActionInterface>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTabBar>
#include <QToolButton>
#include <gtest/gtest.h>
#include <map>

namespace vantrel::test {
namespace {

/// What a screen reader reports of the windows.
class Access : public ::testing::TestWithParam<WindowRow>
{
protected:
    FullStation Station;
};

/// What a screen reader says of a control before its state: its name, the label beside it, or its
/// description.
QString SpokenName(const QWidget& widget)
{
    QAccessibleInterface* told =
        QAccessible::queryAccessibleInterface(const_cast<QWidget*>(&widget));
    if (told == nullptr)
        return {};
    for (const auto& [label, relation] : told->relations(QAccessible::Label)) {
        if (relation.testFlag(QAccessible::Label))
            return label->text(QAccessible::Name);
    }
    const bool nameIsValue = qobject_cast<const QComboBox*>(&widget) != nullptr;
    return told->text(nameIsValue ? QAccessible::Description : QAccessible::Name);
}

bool IsControl(const QWidget& widget)
{
    // A strip of tabs has a name for each tab.
    if (IsPartOfControl(widget) || qobject_cast<const QTabBar*>(&widget) != nullptr ||
        widget.focusProxy() != nullptr)
        return false;
    return widget.focusPolicy() != Qt::NoFocus ||
           qobject_cast<const QAbstractButton*>(&widget) != nullptr ||
           qobject_cast<const QAbstractSlider*>(&widget) != nullptr;
}

TEST_P(Access, EveryControlHasAName)
{
    const QWidget& window = OpenActive(GetParam(), Station);
    int controls = 0;
    OnEachFace(const_cast<QWidget&>(window), [&] {
        for (const QWidget* widget : Shown<QWidget>(window)) {
            if (!IsControl(*widget))
                continue;
            ++controls;
            EXPECT_FALSE(SpokenName(*widget).trimmed().isEmpty()) << Told(*widget);
            EXPECT_FALSE(SpokenName(*widget).contains(QLatin1Char('&'))) << Told(*widget);
        }
    });
    EXPECT_GT(controls, 0);
}

TEST_P(Access, EveryWindowHasACaption)
{
    QWidget& window = OpenActive(GetParam(), Station);
    QAccessibleInterface* told = QAccessible::queryAccessibleInterface(&window);
    EXPECT_FALSE(told->text(QAccessible::Name).trimmed().isEmpty());
    EXPECT_TRUE(told->role() == QAccessible::Dialog || told->role() == QAccessible::Window);
}

void Collect(QAccessibleInterface& told, QList<const QObject*>& found)
{
    for (int index = 0; index < told.childCount(); ++index) {
        QAccessibleInterface* child = told.child(index);
        if (child == nullptr)
            continue;
        found.append(child->object());
        Collect(*child, found);
    }
}

TEST_P(Access, EveryControlIsFoundFromItsWindow)
{
    QWidget& window = OpenActive(GetParam(), Station);
    OnEachFace(window, [&] {
        QList<const QObject*> found;
        Collect(*QAccessible::queryAccessibleInterface(&window), found);
        for (const QWidget* widget : Shown<QWidget>(window)) {
            if (IsControl(*widget)) {
                EXPECT_TRUE(found.contains(widget)) << Told(*widget);
            }
        }
    });
}

/// The role that each kind of control is reported under; the first row that fits counts.
struct RoleRow
{
    const QMetaObject* Type;
    std::initializer_list<QAccessible::Role> Roles;
};

const RoleRow Roles[] = {
    {&DesktopUpDown::staticMetaObject, {QAccessible::SpinBox}},
    {&DesktopElementRow::staticMetaObject, {QAccessible::List}},
    {&QCheckBox::staticMetaObject, {QAccessible::CheckBox}},
    {&QRadioButton::staticMetaObject, {QAccessible::RadioButton}},
    {&QAbstractButton::staticMetaObject, {QAccessible::Button}},
    {&QLineEdit::staticMetaObject, {QAccessible::EditableText}},
    {&QPlainTextEdit::staticMetaObject, {QAccessible::EditableText}},
    {&QComboBox::staticMetaObject, {QAccessible::ComboBox}},
    {&QScrollBar::staticMetaObject, {QAccessible::ScrollBar}},
    {&QAbstractItemView::staticMetaObject,
     {QAccessible::List, QAccessible::Tree, QAccessible::Table}},
};

TEST_P(Access, EveryControlHasTheRoleOfItsKind)
{
    QWidget& window = OpenActive(GetParam(), Station);
    OnEachFace(window, [&] {
        for (QWidget* widget : Shown<QWidget>(window)) {
            const auto* row = std::ranges::find_if(Roles, [&](const RoleRow& candidate) {
                return widget->metaObject()->inherits(candidate.Type);
            });
            if (row == std::end(Roles) || IsPartOfControl(*widget))
                continue;
            const auto role = QAccessible::queryAccessibleInterface(widget)->role();
            EXPECT_TRUE(std::ranges::find(row->Roles, role) != row->Roles.end())
                << Told(*widget) << " is told as " << static_cast<int>(role);
        }
    });
}

/// Mnemonics that two captions of a window share because both captions are given.
constexpr std::pair<const char*, char> SharedMnemonics[] = {{"frmRawData", 'C'},
                                                            {"frmSerialize", 'C'}};

TEST_P(Access, EachMnemonicLeadsToOneControl)
{
    QWidget& window = OpenActive(GetParam(), Station);
    OnEachFace(window, [&] {
        std::map<QString, std::string> seen;
        const auto note = [&](const QString& caption, const QWidget& widget) {
            const QString key = QKeySequence::mnemonic(caption).toString().right(1);
            const bool shared = std::ranges::any_of(SharedMnemonics, [&](const auto& pair) {
                return pair.first == std::string_view(GetParam().Name) &&
                       key == QLatin1Char(pair.second);
            });
            if (key.isEmpty() || shared)
                return;
            const auto [before, fresh] = seen.emplace(key, Told(widget));
            EXPECT_TRUE(fresh) << key.toStdString() << ": " << before->second << " and "
                               << Told(widget);
        };
        for (const auto* button : Shown<QAbstractButton>(window))
            note(button->text(), *button);
        for (const auto* label : Shown<QLabel>(window)) {
            if (label->buddy() != nullptr)
                note(label->text(), *label);
        }
    });
}

INSTANTIATE_TEST_SUITE_P(OfEveryWindow, Access, ::testing::ValuesIn(EveryWindow()), NameOfWindow);

} // namespace
} // namespace vantrel::test
