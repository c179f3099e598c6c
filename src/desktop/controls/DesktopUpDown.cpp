#include "desktop/controls/DesktopUpDown.h"
#include "desktop/controls/DesktopAccess.h"
#include "desktop/controls/DesktopControls.h"
#include <QKeyEvent>
#include <QLineEdit>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <limits>

namespace vantrel {

namespace {
constexpr QSize ArrowSize{20, 13};
constexpr int FocusMargin = 1;

/// Reports to screen readers two actions, up and down, since the number is in the field beside it.
class UpDownAccess : public QAccessibleWidget
{
public:
    UpDownAccess(DesktopUpDown* arrows, QAccessible::Role role)
        : QAccessibleWidget(arrows, role), m_arrows(*arrows)
    {}

    QStringList actionNames() const override
    {
        return QStringList{increaseAction(), decreaseAction()} + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& name) override
    {
        if (name == increaseAction())
            m_arrows.UpButton().click();
        else if (name == decreaseAction())
            m_arrows.DownButton().click();
        else
            QAccessibleWidget::doAction(name);
    }

private:
    DesktopUpDown& m_arrows;
};

} // namespace

DesktopUpDown::DesktopUpDown(const QString& counted, QWidget* parent)
    : QWidget(parent), m_up(MakeArrow("Up", Qt::UpArrow, &DesktopUpDown::PressUp)),
      m_down(MakeArrow("Down", Qt::DownArrow, &DesktopUpDown::PressDown)),
      m_least(std::numeric_limits<int>::min()), m_most(std::numeric_limits<int>::max())
{
    TellAs<DesktopUpDown, QAccessible::SpinBox, UpDownAccess>();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(FocusMargin, FocusMargin, FocusMargin, FocusMargin);
    column->setSpacing(0);
    column->addWidget(m_up);
    column->addWidget(m_down);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(counted);
    m_up->setAccessibleName(counted + QStringLiteral(" up"));
    m_down->setAccessibleName(counted + QStringLiteral(" down"));
}

QToolButton* DesktopUpDown::MakeArrow(const char* name, Qt::ArrowType arrow,
                                      void (DesktopUpDown::*press)())
{
    auto* button = MakeControl<QToolButton>(name, this);
    button->setArrowType(arrow);
    button->setFixedSize(ArrowSize);
    button->setAutoRepeat(true);
    button->setFocusPolicy(Qt::NoFocus);
    connect(button, &QToolButton::clicked, this, press);
    return button;
}

void DesktopUpDown::SetRange(int least, int most)
{
    m_least = least;
    m_most = std::max(least, most);
    SetValue(m_value);
}

void DesktopUpDown::SetValue(int value)
{
    const int within = std::clamp(value, m_least, m_most);
    if (within == m_value)
        return;
    m_value = within;
    Q_EMIT ValueChanged(within);
}

void DesktopUpDown::StandBeside(QLineEdit& field)
{
    field.setMinimumHeight(2 * ArrowSize.height());
    setTabOrder(&field, this);
}

void DesktopUpDown::PressUp()
{
    if (m_value < m_most)
        SetValue(m_value + 1);
    Q_EMIT Up();
}

void DesktopUpDown::PressDown()
{
    if (m_value > m_least)
        SetValue(m_value - 1);
    Q_EMIT Down();
}

void DesktopUpDown::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Up)
        PressUp();
    else if (event->key() == Qt::Key_Down)
        PressDown();
    else
        QWidget::keyPressEvent(event);
}

} // namespace vantrel
