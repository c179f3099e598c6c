#include "desktop/controls/ScreenUnits.h"
#include "desktop/designer/frmDocument.h"
#include "desktop/designer/frmSize.h"
#include "station/commands/ArrangeCommands.h"
#include "station/layout/DesignSelection.h"
#include "station/layout/DesignSteps.h"
#include "station/session/Session.h"
#include <QCoreApplication>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace vantrel {

namespace {

constexpr QColor BorderColor(0, 0, 0, 70);
constexpr int BandWidth = 2;

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

/// The outlines of texts, and of pictures that are not there yet, are shown on the screen only.
void PaintOutline(QPainter& painter, const CardObject& object, const QRect& box)
{
    const bool isText = object.IsLabel() && object.BorderStyle != 0;
    const bool isEmptyPicture = object.IsImage() && !object.Picture.HasHandle();
    if (!isText && !isEmptyPicture)
        return;
    painter.setPen(QPen(BorderColor, 1, isText ? Qt::SolidLine : Qt::DashLine));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(box.adjusted(0, 0, -1, -1));
}

void Release(Session& session, DesignScreen& screen, MouseButton button)
{
    if (session.Options.DesignTools)
        ReleaseSeveral(session.Document, session.Face, screen, button);
    else
        ReleaseButton(session.Document, session.Face, screen, button);
}

/// Ends a drag whose left button is released over another window of this program, such as a menu
/// that opened meanwhile and has the mouse now: the form must still get that release.
class ReleaseWatch : public QObject
{
public:
    ReleaseWatch(QWidget& form, Session& session, DesignScreen& screen)
        : m_form(form), m_session(session), m_screen(screen)
    {
        QCoreApplication::instance()->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::MouseButtonRelease && watched->isWidgetType() &&
            watched != &m_form && static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
            // This object is deleted with the drag.
            Release(m_session, m_screen, MouseButton::Left);
        }
        return false;
    }

private:
    QWidget& m_form;
    Session& m_session;
    DesignScreen& m_screen;
};

} // namespace

FormOnScreen frmDocument::Form() const
{
    const QPoint origin = mapToGlobal(CardRect().topLeft());
    const double twipsPerPixel = TwipsPerInch / ScreenPixelsPerInch;
    return {origin.x(), origin.y(), twipsPerPixel, twipsPerPixel};
}

void frmDocument::InvertOutline(const CRect& rectangle)
{
    if (m_band == rectangle)
        m_band.reset();
    else
        m_band = rectangle;
    update();
}

void frmDocument::CaptureMouse()
{
    // A window gets the mouse as long as a button is held. Not every display can confine the
    // pointer, so its position is limited to the form.
    m_confined = true;
    m_releaseWatch =
        std::make_unique<ReleaseWatch>(*this, m_session, static_cast<DesignScreen&>(*this));
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
    return ScreenRect(static_cast<double>(object.Left), static_cast<double>(object.Top),
                      static_cast<double>(object.Width), static_cast<double>(object.Height))
        .translated(CardRect().topLeft());
}

CardObject* frmDocument::GripAt(const QPointF& position) const
{
    const CardDocument& document = m_session.Document;
    for (int grip = 0; grip <= document.HighestIndex(Family::picHandle); ++grip) {
        CardObject* handle = document.Find(Family::picHandle, grip);
        if (handle != nullptr && handle->Visible && BoxOf(*handle).contains(position.toPoint()))
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

void frmDocument::TakeCursor(const QMouseEvent& event)
{
    QPoint position = event.globalPosition().toPoint();
    if (m_confined) {
        const QRect inside(mapToGlobal(CardRect().topLeft()), CardRect().size());
        position = {std::clamp(position.x(), inside.left(), inside.right()),
                    std::clamp(position.y(), inside.top(), inside.bottom())};
    }
    m_cursor = {position.x(), position.y()};
}

void frmDocument::mousePressEvent(QMouseEvent* event)
{
    TakeCursor(*event);
    NoteDesign(m_session);
    m_objectHasMouse = false;
    // During a drag the form gets the mouse, whatever is under the pointer.
    const bool isDragging = m_session.Document.Drag.Mode != DragMode::None;
    const CardObject* grip = isDragging ? nullptr : GripAt(event->position());
    CardObject* object = isDragging || grip != nullptr ? nullptr : ObjectAt(event->position());
    if (grip != nullptr) {
        PressHandle(m_session.Document, *this, grip->Index());
    } else if (object != nullptr) {
        PressOnObject(*object, *event);
    } else {
        PressOnPage(*event);
    }
    if (m_session.Options.DesignTools)
        m_session.Face.NotifyDesign();
    event->accept();
}

void frmDocument::PressOnObject(CardObject& object, const QMouseEvent& event)
{
    const MouseButton button = ButtonOf(event.button());
    const ShiftState shift = ShiftStateOf(event.modifiers());
    if (m_session.Options.DesignTools) {
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
    const bool isDragging = m_session.Document.Drag.Mode != DragMode::None;
    PressForm(m_session.Document);
    if (!m_session.Options.DesignTools || isDragging || event.button() != Qt::LeftButton)
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

void frmDocument::keyPressEvent(QKeyEvent* event)
{
    struct ArrowRow
    {
        int Key;
        float Right;
        float Down;
    };
    constexpr ArrowRow arrows[] = {
        {Qt::Key_Left, -1, 0}, {Qt::Key_Right, 1, 0}, {Qt::Key_Up, 0, -1}, {Qt::Key_Down, 0, 1}};
    const auto* arrow = std::ranges::find(arrows, event->key(), &ArrowRow::Key);
    const Qt::KeyboardModifiers held = event->modifiers() & ~Qt::KeypadModifier;
    const bool moves = m_session.Options.DesignTools && arrow != std::end(arrows) &&
                       (held == Qt::NoModifier || held == Qt::ShiftModifier);
    if (!moves) {
        QMdiSubWindow::keyPressEvent(event);
        return;
    }
    // A key that is held makes one step.
    if (!event->isAutoRepeat())
        NoteDesign(m_session);
    CloseSizeDialog();
    const float step = held == Qt::ShiftModifier ? TwipStep : PointStep;
    MoveSelected(m_session, arrow->Right * step, arrow->Down * step);
    event->accept();
}

void frmDocument::mouseMoveEvent(QMouseEvent* event)
{
    TakeCursor(*event);
    if (event->buttons() == Qt::NoButton) {
        const CardObject* grip = GripAt(event->position());
        setCursor(grip != nullptr ? ShapeOf(CursorOfGrip(grip->Index())) : Qt::ArrowCursor);
    }
    MoveMouse(m_session.Document, *this);
    if (m_bandFrom)
        StretchBand();
    event->accept();
}

void frmDocument::mouseReleaseEvent(QMouseEvent* event)
{
    TakeCursor(*event);
    if (m_bandFrom && event->button() == Qt::LeftButton)
        SelectByBand();
    else if (!m_objectHasMouse)
        Release(m_session, *this, ButtonOf(event->button()));
    m_objectHasMouse = false;
    NoteDesign(m_session);
    if (m_session.Options.DesignTools)
        m_session.Face.NotifyDesign();
    event->accept();
}

void frmDocument::mouseDoubleClickEvent(QMouseEvent* event)
{
    // The second press of a double click is handled as a press like any other.
    mousePressEvent(event);
}

void frmDocument::leaveEvent(QEvent* event)
{
    // The frame of a window in the workspace has pointer shapes of its own; the card has no frame.
    unsetCursor();
    event->accept();
}

void frmDocument::PaintSelected(QPainter& painter) const
{
    const CardDocument& document = m_session.Document;
    if (document.SelectedObject == nullptr)
        return;
    painter.setPen(QPen(palette().color(QPalette::Highlight), BandWidth));
    painter.setBrush(Qt::NoBrush);
    for (const CardObject* object : document.AlsoSelected)
        painter.drawRect(BoxOf(*object).adjusted(0, 0, -1, -1));
}

void frmDocument::PaintDesign(QPainter& painter) const
{
    const CardDocument& document = m_session.Document;
    painter.setClipRect(CardRect());
    for (const auto& object : document.Objects()) {
        if (object->Index() > 0 && object->Visible)
            PaintOutline(painter, *object, BoxOf(*object));
    }
    painter.setPen(QPen(palette().color(QPalette::HighlightedText), 1));
    painter.setBrush(palette().color(QPalette::Highlight));
    for (int grip = 0; grip <= document.HighestIndex(Family::picHandle); ++grip) {
        const CardObject* handle = document.Find(Family::picHandle, grip);
        if (handle != nullptr && handle->Visible)
            painter.drawRect(BoxOf(*handle).adjusted(0, 0, -1, -1));
    }
    PaintSelected(painter);
    if (!m_band)
        return;
    painter.setCompositionMode(QPainter::CompositionMode_Difference);
    painter.setPen(QPen(Qt::white, BandWidth));
    painter.setBrush(Qt::NoBrush);
    const QPoint origin = mapToGlobal(QPoint(0, 0));
    painter.drawRect(
        QRect(m_band->Left, m_band->Top, m_band->Width(), m_band->Height()).translated(-origin));
}

} // namespace vantrel
