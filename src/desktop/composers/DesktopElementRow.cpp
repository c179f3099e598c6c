#include "desktop/composers/DesktopElementRow.h"
#include "base/DesktopColor.h"
#include "desktop/composers/DesktopElementChip.h"
#include "desktop/controls/DesktopAccess.h"
#include <QDragEnterEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>
#include <QPointer>
#include <QScrollBar>
#include <QStyle>
#include <algorithm>

namespace vantrel {

namespace {

constexpr int Margin = 4;
constexpr qreal SlotRadius = 4;
constexpr QColor HintColor(0x50, 0x50, 0x60);
constexpr qreal FocusWidth = 2;

} // namespace

/// The background of a row. It shows the row's colour, a hint while the row is empty, and the place
/// that a drop would take.
class DesktopElementRow::Strip : public QWidget
{
public:
    explicit Strip(DesktopElementRow* row)
        : QWidget(row), m_owner(*row), m_row(new QHBoxLayout(this))
    {
        setAutoFillBackground(true);
        m_row->setContentsMargins(Margin, Margin, Margin, Margin);
        m_row->setSpacing(0);
        m_row->addStretch();
    }

    void Add(QWidget* element) { m_row->insertWidget(m_row->count() - 1, element); }

    void ShowSlot(bool shown)
    {
        m_slotShown = shown;
        update();
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const int height = DesktopElementChip::HeightFor(font());
        const int left =
            m_row->count() > 1 ? m_row->itemAt(m_row->count() - 2)->geometry().right() + 1 : Margin;
        const QRectF slot(left, (rect().height() - height) / 2.0, height * 2, height);
        painter.setPen(QPen(HintColor, 1, m_slotShown ? Qt::DashLine : Qt::SolidLine));
        if (m_slotShown)
            painter.drawRoundedRect(slot.adjusted(2, 2, -2, -2), SlotRadius, SlotRadius);
        else if (m_row->count() == 1)
            painter.drawText(rect().adjusted(2 * Margin, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft,
                             QStringLiteral("Drop elements here"));
        if (m_owner.hasFocus()) {
            painter.setPen(QPen(Qt::black, FocusWidth));
            painter.drawRect(rect().adjusted(1, 1, -1, -1));
        }
    }

private:
    DesktopElementRow& m_owner;
    QHBoxLayout* m_row;
    bool m_slotShown = false;
};

DesktopElementRow::DesktopElementRow(const QString& elementName, const QString& accessibleName,
                                     QWidget* parent)
    : QScrollArea(parent), m_elementName(elementName), m_strip(new Strip(this))
{
    TellAs<DesktopElementRow, QAccessible::List>();
    setAccessibleName(accessibleName);
    setWidgetResizable(true);
    setWidget(m_strip);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::StrongFocus);
    setAcceptDrops(true);
    // Room for the scroll bar is reserved, so that nothing below moves when it appears.
    setFixedHeight(DesktopElementChip::HeightFor(font()) + 2 * Margin + 2 * frameWidth() +
                   horizontalScrollBar()->sizeHint().height());
    connect(horizontalScrollBar(), &QScrollBar::rangeChanged, this, [this](int, int last) {
        if (m_showLast)
            horizontalScrollBar()->setValue(last);
    });
}

DesktopElementRow::~DesktopElementRow() = default;

void DesktopElementRow::SetBackColor(ColorValue color)
{
    QPalette colors = m_strip->palette();
    colors.setColor(QPalette::Window, ColorOf(color));
    m_strip->setPalette(colors);
}

void DesktopElementRow::AddChip()
{
    auto* chip = new DesktopElementChip(m_strip);
    chip->setObjectName(QStringLiteral("%1(%2)").arg(m_elementName).arg(Count() + 1));
    chip->installEventFilter(this);
    m_strip->Add(chip);
    m_chips.push_back(chip);
}

void DesktopElementRow::SetElements(const std::vector<Shown>& elements)
{
    const int before = Count();
    const int focused = FocusedIndex();
    while (m_chips.size() > elements.size()) {
        DesktopElementChip* const last = m_chips.back();
        m_chips.pop_back();
        // The element may be handling an event at this moment, so it is deleted later.
        last->hide();
        last->setParent(nullptr);
        last->deleteLater();
    }
    while (m_chips.size() < elements.size())
        AddChip();
    for (std::size_t index = 0; index < elements.size(); ++index)
        m_chips[index]->Show(elements[index].Look, elements[index].ToolTip);
    if (focused >= Count())
        FocusElement(Count() - 1);
    m_strip->update();
    m_showLast = Count() == before + 1;
}

int DesktopElementRow::FocusedIndex() const
{
    const auto found = std::find_if(m_chips.begin(), m_chips.end(),
                                    [](const QWidget* chip) { return chip->hasFocus(); });
    return found == m_chips.end() ? -1 : static_cast<int>(found - m_chips.begin());
}

void DesktopElementRow::FocusElement(int index)
{
    if (m_chips.empty()) {
        setFocus();
        return;
    }
    DesktopElementChip* const chip =
        m_chips[static_cast<std::size_t>(std::clamp(index, 0, Count() - 1))];
    chip->setFocus();
    ensureWidgetVisible(chip, Margin, 0);
}

bool DesktopElementRow::eventFilter(QObject* watched, QEvent* event)
{
    const auto found = std::find(m_chips.begin(), m_chips.end(), watched);
    if (found != m_chips.end()) {
        // The dialog that an element opens lets events run, which may delete this whole composer.
        const QPointer<DesktopElementRow> self(this);
        ChipEvent(static_cast<int>(found - m_chips.begin()), *event);
        if (self.isNull())
            return true;
    }
    return QScrollArea::eventFilter(watched, event);
}

void DesktopElementRow::ChipEvent(int index, QEvent& event)
{
    if (event.type() == QEvent::MouseButtonDblClick) {
        if (static_cast<QMouseEvent&>(event).button() == Qt::LeftButton)
            Q_EMIT Opened(index);
    } else if (event.type() == QEvent::MouseButtonRelease) {
        const auto& release = static_cast<QMouseEvent&>(event);
        if (release.button() == Qt::RightButton)
            Q_EMIT RightReleased(index, release.globalPosition().toPoint());
    }
}

void DesktopElementRow::dragEnterEvent(QDragEnterEvent* event)
{
    if (!event->mimeData()->hasText())
        return;
    m_strip->ShowSlot(true);
    event->acceptProposedAction();
}

void DesktopElementRow::dragMoveEvent(QDragMoveEvent* event)
{
    event->acceptProposedAction();
}

void DesktopElementRow::dragLeaveEvent(QDragLeaveEvent* /*event*/)
{
    m_strip->ShowSlot(false);
}

void DesktopElementRow::dropEvent(QDropEvent* event)
{
    m_strip->ShowSlot(false);
    event->acceptProposedAction();
    Q_EMIT Dropped(event->mimeData()->text());
}

void DesktopElementRow::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        Q_EMIT Clicked();
}

void DesktopElementRow::keyPressEvent(QKeyEvent* event)
{
    const int focused = FocusedIndex();
    switch (event->key()) {
    case Qt::Key_Left:
        FocusElement(focused < 0 ? Count() - 1 : focused - 1);
        return;
    case Qt::Key_Right:
        FocusElement(focused + 1);
        return;
    case Qt::Key_Home:
        FocusElement(0);
        return;
    case Qt::Key_End:
        FocusElement(Count() - 1);
        return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (focused < 0)
            Q_EMIT Clicked();
        else
            Q_EMIT Opened(focused);
        return;
    case Qt::Key_Space:
        Q_EMIT Clicked();
        return;
    case Qt::Key_Delete:
        if (focused >= 0)
            Q_EMIT DeletePressed(focused);
        return;
    default:
        QScrollArea::keyPressEvent(event);
    }
}

void DesktopElementRow::focusInEvent(QFocusEvent* event)
{
    QScrollArea::focusInEvent(event);
    m_strip->update();
    if (event->reason() == Qt::ShortcutFocusReason)
        Q_EMIT Clicked();
}

void DesktopElementRow::focusOutEvent(QFocusEvent* event)
{
    QScrollArea::focusOutEvent(event);
    m_strip->update();
}

} // namespace vantrel
