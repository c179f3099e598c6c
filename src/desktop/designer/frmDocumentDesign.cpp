#include "desktop/controls/ScreenUnits.h"
#include "desktop/designer/frmDocument.h"
#include "desktop/designer/frmSize.h"
#include "station/commands/ArrangeCommands.h"
#include "station/layout/DesignSelection.h"
#include "station/layout/DesignSteps.h"
#include "station/session/Session.h"
#include <QGuiApplication>
#include <QMdiArea>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <functional>
#include <optional>
#include <utility>

namespace vantrel {

namespace {

constexpr int BandWidth = 2;
/// Side of a grip, and the shortest side of a box with a grip in its middle, in pixels.
constexpr int GripSize = 7;
constexpr int ShortestSide = 3 * GripSize;
/// A drag that comes this near to the edge of the workspace scrolls it, by so many pixels each
/// time.
constexpr int ScrollRim = 12;
constexpr int ScrollInterval = 30;

Qt::CursorShape ShapeOf(GripCursor cursor)
{
    switch (cursor) {
    case GripCursor::NorthWest:
        return Qt::SizeFDiagCursor;
    case GripCursor::NorthSouth:
        return Qt::SizeVerCursor;
    case GripCursor::NorthEast:
        return Qt::SizeBDiagCursor;
    case GripCursor::EastWest:
        return Qt::SizeHorCursor;
    }
    return Qt::ArrowCursor;
}

MouseButton ButtonOf(Qt::MouseButton button)
{
    if (button == Qt::LeftButton)
        return MouseButton::Left;
    return button == Qt::RightButton ? MouseButton::Right : MouseButton::Other;
}

/// Other keys that a platform reports with a press, such as the desktop's own key, do not count.
ShiftState ShiftStateOf(Qt::KeyboardModifiers keys)
{
    const bool held = keys & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier);
    return held ? ShiftState::Held : ShiftState::None;
}

/// Ends a drag whose left button is released over another window of this program, such as a menu
/// that opened meanwhile and has the mouse now: the form must still get that release.
class ReleaseWatch : public QObject
{
public:
    ReleaseWatch(QWidget& form, std::function<void()> release)
        : m_form(form), m_release(std::move(release))
    {
        QCoreApplication::instance()->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::MouseButtonRelease && watched->isWidgetType() &&
            watched != &m_form && static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
            // This object is deleted with the drag.
            const std::function<void()> release = m_release;
            release();
        }
        return false;
    }

private:
    QWidget& m_form;
    std::function<void()> m_release;
};

} // namespace

FormOnScreen frmDocument::Form() const
{
    const QPoint origin = mapToGlobal(CardRect().topLeft());
    const double twipsPerPixel = TwipsPerInch / ScreenPixelsPerInch / m_zoom;
    return {origin.x(), origin.y(), twipsPerPixel, twipsPerPixel};
}

void frmDocument::InvertOutline(const CRect& rectangle)
{
    if (m_band == rectangle)
        m_band.reset();
    else
        m_band = rectangle;
    UpdateBand(rectangle);
}

void frmDocument::UpdateBand(const CRect& rectangle)
{
    if (!HasTools()) {
        update();
        return;
    }
    const QPoint origin = mapToGlobal(QPoint(0, 0));
    const QRect band =
        QRect(QPoint(rectangle.Left, rectangle.Top), QPoint(rectangle.Right, rectangle.Bottom))
            .normalized()
            .translated(-origin);
    QRect changed = band;
    if (m_session.Document.Drag.Mode == DragMode::Moving) {
        const QPoint way = Dragged();
        for (const CardObject* object : m_session.Document.AlsoSelected)
            changed |= BoxOf(*object).translated(way);
    }
    update(changed.adjusted(-BandWidth, -BandWidth, BandWidth, BandWidth));
}

QPoint frmDocument::Dragged() const
{
    const CardObject* const object = m_session.Document.SelectedObject;
    const CRect& band = m_session.Document.Drag.m_DragRect;
    if (object == nullptr)
        return {};
    return mapFromGlobal(QPoint(band.Left, band.Top)) - BoxOf(*object).topLeft();
}

bool frmDocument::IsDragging() const
{
    return m_session.Document.Drag.Mode != DragMode::None;
}

void frmDocument::Release(MouseButton button)
{
    CardDocument& document = m_session.Document;
    if (!HasTools()) {
        ReleaseButton(document, m_session.Face, *this, button);
        return;
    }
    ReleaseSeveral(document, m_session.Face, *this, button, m_snap ? &*m_snap : nullptr);
    if (!IsDragging()) {
        m_snap.reset();
        m_dragScroll.stop();
    }
}

void frmDocument::CaptureMouse()
{
    // A window gets the mouse as long as a button is held. Not every display can confine the
    // pointer, so its position is limited to the form.
    m_confined = true;
    m_releaseWatch = std::make_unique<ReleaseWatch>(*this, [this] { Release(MouseButton::Left); });
}

void frmDocument::ReleaseMouse()
{
    m_confined = false;
    m_releaseWatch.reset();
}

void frmDocument::CloseSizeDialog()
{
    if (auto* dialog = window()->findChild<frmSize*>())
        dialog->close();
}

QRect frmDocument::BoxOf(const CardObject& object) const
{
    return BoxInWindow(static_cast<double>(object.Left), static_cast<double>(object.Top),
                       static_cast<double>(object.Width), static_cast<double>(object.Height));
}

QRect frmDocument::GripBox(const CardObject& grip) const
{
    if (!grip.Visible)
        return {};
    if (!HasTools())
        return BoxOf(grip);
    // Grips are as large at each zoom. On a card that is shown small those in the middle of a short
    // side make way for the corners.
    const CRect& drag = m_session.Document.Drag.m_DragRect;
    const QRect box = BoxInWindow(drag.Left, drag.Top, drag.Width(), drag.Height());
    const GripSides sides = SidesOfGrip(grip.Index());
    const bool isCrowded = (sides.Across == 0 && box.width() < ShortestSide) ||
                           (sides.Down == 0 && box.height() < ShortestSide);
    if (m_zoom < CardZoom::Actual && isCrowded)
        return {};
    const auto along = [](int side, int begin, int length) {
        return side == 0 ? begin + length / 2 : (side < 0 ? begin : begin + length - 1);
    };
    const QPoint middle(along(sides.Across, box.left(), box.width()),
                        along(sides.Down, box.top(), box.height()));
    return {middle - QPoint(GripSize / 2, GripSize / 2), QSize(GripSize, GripSize)};
}

CardObject* frmDocument::GripAt(const QPointF& position) const
{
    const CardDocument& document = m_session.Document;
    for (int grip = 0; grip <= document.HighestIndex(Family::picHandle); ++grip) {
        CardObject* handle = document.Find(Family::picHandle, grip);
        if (handle != nullptr && GripBox(*handle).contains(position.toPoint()))
            return handle;
    }
    return nullptr;
}

const CardDocument& frmDocument::Document() const
{
    return m_session.Document;
}

const CardObject* frmDocument::ShownObject(Family family, int index) const
{
    const CardObject* const object = m_session.Document.Find(family, index);
    const bool shows = object != nullptr && index > 0 && object->Visible &&
                       (object->IsLabel() || object->IsImage());
    return shows ? object : nullptr;
}

CardObject* frmDocument::ObjectAt(const QPointF& position) const
{
    const auto& objects = m_session.Document.Objects();
    const auto found = std::find_if(objects.rbegin(), objects.rend(), [&](const auto& object) {
        return ShownObject(object->Family(), object->Index()) != nullptr &&
               BoxOf(*object).contains(position.toPoint());
    });
    return found == objects.rend() ? nullptr : found->get();
}

QRect frmDocument::ScreenBoxOf(const CardObject& object) const
{
    const QRect box = BoxOf(object);
    return {mapToGlobal(box.topLeft()), box.size()};
}

void frmDocument::TakeCursor(const QPoint& position)
{
    m_mouse = position;
    QPoint inside = position;
    if (m_confined) {
        const QRect form(mapToGlobal(CardRect().topLeft()), CardRect().size());
        inside = {std::clamp(position.x(), form.left(), form.right()),
                  std::clamp(position.y(), form.top(), form.bottom())};
    }
    m_cursor = {inside.x(), inside.y()};
}

void frmDocument::mousePressEvent(QMouseEvent* event)
{
    TakeText();
    TakeCursor(event->globalPosition().toPoint());
    NoteDesign(m_session);
    m_objectHasMouse = false;
    // During a drag the form gets the mouse, whatever is under the pointer.
    const bool isDragging = IsDragging();
    const CardObject* grip = isDragging ? nullptr : GripAt(event->position());
    CardObject* object = isDragging || grip != nullptr ? nullptr : ObjectAt(event->position());
    if (grip != nullptr) {
        PressHandle(m_session.Document, *this, grip->Index());
    } else if (object != nullptr) {
        PressOnObject(*object, *event);
    } else {
        PressOnPage(*event);
    }
    if (HasTools()) {
        if (!isDragging && IsDragging())
            m_snap.emplace(m_session.Document);
        m_session.Face.NotifyDesign();
    }
    event->accept();
}

void frmDocument::PressOnObject(CardObject& object, const QMouseEvent& event)
{
    const MouseButton button = ButtonOf(event.button());
    const ShiftState shift = ShiftStateOf(event.modifiers());
    if (HasTools()) {
        const bool adds =
            (event.modifiers() & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier)) ==
            Qt::ControlModifier;
        PressOneOfSeveral(m_session.Document, m_session.Face, *this, object, button, shift, adds);
    } else {
        PressObject(m_session.Document, m_session.Face, *this, object, button, shift);
    }
    m_objectHasMouse = button != MouseButton::Left || shift == ShiftState::Held;
}

void frmDocument::PressOnPage(const QMouseEvent& event)
{
    const bool isDragging = IsDragging();
    PressForm(m_session.Document);
    if (!HasTools() || isDragging || event.button() != Qt::LeftButton)
        return;
    m_bandFrom = m_cursor;
}

void frmDocument::StretchBand()
{
    m_band = CRect{m_bandFrom->X, m_bandFrom->Y, m_cursor.X, m_cursor.Y};
    update();
}

void frmDocument::SelectByBand()
{
    m_bandFrom.reset();
    if (!m_band)
        return;
    CRect inside = *std::exchange(m_band, std::nullopt);
    inside.ScreenToTwips(Form());
    SelectInside(m_session.Document, m_session.Face, inside);
    update();
}

bool frmDocument::MoveByKey(const QKeyEvent& event)
{
    struct ArrowRow
    {
        int Key;
        float Right;
        float Down;
    };
    constexpr ArrowRow arrows[] = {
        {Qt::Key_Left, -1, 0}, {Qt::Key_Right, 1, 0}, {Qt::Key_Up, 0, -1}, {Qt::Key_Down, 0, 1}};
    const auto* arrow = std::ranges::find(arrows, event.key(), &ArrowRow::Key);
    const Qt::KeyboardModifiers held = event.modifiers() & ~Qt::KeypadModifier;
    if (m_session.Document.SelectedObject == nullptr || arrow == std::end(arrows) ||
        (held != Qt::NoModifier && held != Qt::ShiftModifier))
        return false;
    // A key that is held makes one step.
    if (!event.isAutoRepeat())
        NoteDesign(m_session);
    CloseSizeDialog();
    const float step = held == Qt::ShiftModifier ? TwipStep : PointStep;
    MoveSelected(m_session, arrow->Right * step, arrow->Down * step);
    Reveal(*m_session.Document.SelectedObject);
    return true;
}

void frmDocument::keyPressEvent(QKeyEvent* event)
{
    const Qt::KeyboardModifiers held = event->modifiers() & ~Qt::KeypadModifier;
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (HasTools() && isEnter && held == Qt::NoModifier && !IsDragging())
        EditText();
    else if (HasTools() && (MoveByKey(*event) || ScrollByKey(event->key(), held)))
        event->accept();
    else
        QMdiSubWindow::keyPressEvent(event);
}

void frmDocument::Snap(Qt::KeyboardModifiers held)
{
    if (!m_snap)
        return;
    const auto before = std::pair(m_snap->Upright(), m_snap->Level());
    if (held & Qt::AltModifier)
        m_snap->LetGo();
    else
        m_cursor = m_snap->Aim(m_session.Document, Form(), m_cursor);
    // The lines reach beyond what is dragged.
    if (before.first || before.second || m_snap->Upright() || m_snap->Level())
        update();
}

void frmDocument::Follow(Qt::KeyboardModifiers held)
{
    Snap(held);
    MoveMouse(m_session.Document, *this);
    if (m_bandFrom)
        StretchBand();
}

void frmDocument::ScrollWhileDragging()
{
    if (!IsDragging() && !m_bandFrom) {
        m_dragScroll.stop();
        return;
    }
    const QRect view = WorkspaceView().adjusted(ScrollRim, ScrollRim, -ScrollRim, -ScrollRim);
    const QPoint mouse = mapToParent(mapFromGlobal(m_mouse));
    const auto beyond = [](int at, int begin, int end) {
        return at < begin ? -ScrollRim : (at > end ? ScrollRim : 0);
    };
    const QPoint way(beyond(mouse.x(), view.left(), view.right()),
                     beyond(mouse.y(), view.top(), view.bottom()));
    if (way.isNull()) {
        m_dragScroll.stop();
        return;
    }
    const QPoint before = pos();
    ScrollBy(way);
    if (pos() == before)
        return;
    TakeCursor(m_mouse);
    Follow(QGuiApplication::queryKeyboardModifiers());
}

void frmDocument::mouseMoveEvent(QMouseEvent* event)
{
    TakeCursor(event->globalPosition().toPoint());
    if (event->buttons() == Qt::NoButton) {
        const CardObject* grip = GripAt(event->position());
        setCursor(grip != nullptr ? ShapeOf(CursorOfGrip(grip->Index())) : Qt::ArrowCursor);
    }
    Follow(event->modifiers());
    if (HasTools()) {
        m_pointer = TwipsAt(event->position());
        if ((IsDragging() || m_bandFrom) && !m_dragScroll.isActive() && mdiArea() != nullptr)
            m_dragScroll.start(ScrollInterval);
        Q_EMIT ViewChanged();
    }
    event->accept();
}

void frmDocument::mouseReleaseEvent(QMouseEvent* event)
{
    TakeCursor(event->globalPosition().toPoint());
    if (m_bandFrom && event->button() == Qt::LeftButton)
        SelectByBand();
    else if (!m_objectHasMouse)
        Release(ButtonOf(event->button()));
    m_objectHasMouse = false;
    NoteDesign(m_session);
    if (HasTools()) {
        m_session.Face.NotifyDesign();
        Q_EMIT ViewChanged();
    }
    event->accept();
}

void frmDocument::mouseDoubleClickEvent(QMouseEvent* event)
{
    // The second press of a double click is handled as a press like any other, except on a text
    // that can be edited.
    const CardObject* const object =
        HasTools() && !IsDragging() && GripAt(event->position()) == nullptr
            ? ObjectAt(event->position())
            : nullptr;
    if (object != nullptr && object->Family() == Family::lbl_TEXT &&
        event->button() == Qt::LeftButton && ShiftStateOf(event->modifiers()) == ShiftState::None) {
        BeginText(*object);
        event->accept();
        return;
    }
    mousePressEvent(event);
}

void frmDocument::leaveEvent(QEvent* event)
{
    // The frame of a window in the workspace has pointer shapes of its own; the card has no frame.
    unsetCursor();
    if (HasTools()) {
        m_pointer.reset();
        Q_EMIT ViewChanged();
    }
    event->accept();
}

} // namespace vantrel
