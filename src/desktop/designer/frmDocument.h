#pragma once

#include "card/CardObject.h"
#include "desktop/designer/CardZoom.h"
#include "desktop/designer/DesktopCardPicture.h"
#include "station/layout/DesignSnap.h"
#include "station/layout/DesignSurface.h"
#include <QMdiSubWindow>
#include <QPointer>
#include <QRectF>
#include <QTimer>
#include <memory>
#include <optional>

class QScrollBar;

namespace vantrel {

class CardDocument;
class DesktopTextInPlace;
class PageCanvas;
class Session;

/// The card on the workspace, and the designer's surface. It paints the document with the renderer
/// that also draws the printed page, and is shown, hidden and updated by the document's signals.
/// While it is hidden it does no work. Mouse events go to the routines of the design surface. At a
/// station with design tools it is shown at any zoom, snaps and edits texts in their place.
class frmDocument : public QMdiSubWindow, private DesignScreen
{
    Q_OBJECT

public:
    explicit frmDocument(Session& session, QWidget* parent = nullptr);
    ~frmDocument() override;

    /// Takes over place, size and visibility of the document.
    void Mirror();
    /// The whole card as it prints, at the present zoom, drawn anew if it has changed.
    const QImage& CardPicture();
    /// Where the card lies in the window, in its pixels. A shadow stands around it.
    QRect CardRect() const;

    const CardDocument& Document() const;
    /// The visible object of that family and index; null where there is none, and for things that
    /// are no objects, such as a grip.
    const CardObject* ShownObject(Family family, int index) const;
    /// The topmost part of the page under a point of the window; none for the empty page.
    CardObject* ObjectAt(const QPointF& position) const;
    /// The place of an object on the screen, in the screen's pixels.
    QRect ScreenBoxOf(const CardObject& object) const;
    /// The part of the window that can be seen, in the screen's pixels.
    QRect ScreenView() const;

    /// @name The view, for a station with design tools. Without them all of it does nothing.
    /// @{
    bool HasTools() const;
    double Zoom() const { return m_zoom; }
    /// Shows the card larger or smaller; what is at a point of the window stays there.
    void ZoomTo(double zoom, const QPointF& around);
    /// Goes one step up or down. The selected object stays where it is if it is in view, else what
    /// is in the middle.
    void ZoomStep(int direction);
    /// The same for a zoom that was chosen.
    void ZoomInPlace(double zoom);
    /// Shows the card in its size, at its place on the workspace.
    void ZoomToActual();
    /// Shows the whole card as large as the workspace allows.
    void ZoomToFit();
    /// Brings an object into view.
    void Reveal(const CardObject& object);
    /// Twips of the card at a point of the window.
    QPointF TwipsAt(const QPointF& position) const;
    /// What is dragged, or else the box around all that is selected, in twips; none if nothing is.
    std::optional<QRectF> Extent() const;
    /// Where the pointer is on the card, in twips, as long as it is over the window.
    const std::optional<QPointF>& Pointer() const { return m_pointer; }
    /// Edits the selected static text in its place.
    void EditText();
    /// The field in which a text is edited; null while none is.
    QWidget* TextField() const;
    /// @}

Q_SIGNALS:
    /// Place, zoom, selection or pointer have changed; only where there are design tools.
    void ViewChanged();

protected:
    void paintEvent(QPaintEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    /// A window in the workspace would handle the Tab key itself, but the card has no control to go
    /// to.
    bool focusNextPrevChild(bool next) override;

private:
    Point Cursor() const override { return m_cursor; }
    FormOnScreen Form() const override;
    void InvertOutline(const CRect& rectangle) override;
    void CaptureMouse() override;
    void ReleaseMouse() override;
    void UpdateForm() override { update(); }
    void CloseSizeDialog() override;

    void MirrorSoon();
    void TellChanges();
    void TakePlace();
    void PlaceAt(const QPoint& corner);
    QSize ZoomedSize() const;
    KeptCardPicture::View PictureView() const;
    /// The part of the window that can be seen, in its pixels.
    QRect VisiblePart() const;
    QRect WorkspaceView() const;
    void ScrollBy(const QPoint& pixels);
    bool ScrollByKey(int key, Qt::KeyboardModifiers held);
    bool MoveByKey(const QKeyEvent& event);
    void ScrollWhileDragging();

    /// Paints the page, or what it would print with the last record.
    void PaintPage(PageCanvas& canvas) const;
    void PaintDesign(QPainter& painter, const QRect& dirty) const;
    void PaintGrips(QPainter& painter) const;
    void PaintSelected(QPainter& painter) const;
    void PaintBand(QPainter& painter) const;
    void PaintGuides(QPainter& painter) const;
    void TakeCursor(const QPoint& position);
    void Snap(Qt::KeyboardModifiers held);
    void Follow(Qt::KeyboardModifiers held);
    void PressOnObject(CardObject& object, const QMouseEvent& event);
    void PressOnPage(const QMouseEvent& event);
    void Release(MouseButton button);
    /// Stretches the band that selects objects from where it was begun to the pointer.
    void StretchBand();
    void SelectByBand();
    bool IsDragging() const;
    CardObject* GripAt(const QPointF& position) const;
    /// The place of a grip that is shown; empty for one that is not.
    QRect GripBox(const CardObject& grip) const;
    QRect BoxOf(const CardObject& object) const;
    QRect BoxInWindow(double left, double top, double width, double height) const;
    /// How far the drag has moved the selected object, in pixels.
    QPoint Dragged() const;
    void UpdateBand(const CRect& rectangle);

    void BeginText(const CardObject& object);
    void TakeText();
    void EndText();
    void PlaceText();

    Session& m_session;
    KeptCardPicture m_picture;
    bool m_mirrorAsked = false;
    double m_zoom = CardZoom::Actual;
    /// The place that the document has had on the workspace, to notice another one.
    QRect m_home;
    /// Parts of a step that the wheel has been turned, in its eighths of a degree.
    int m_wheel = 0;
    Point m_cursor;
    /// The pointer before it was confined or snapped, on the screen.
    QPoint m_mouse;
    std::optional<QPointF> m_pointer;
    bool m_confined = false;
    /// Watches for the release of a drag while the form has the mouse.
    std::unique_ptr<QObject> m_releaseWatch;
    QTimer m_dragScroll;
    std::optional<DesignSnap> m_snap;
    /// The button was pressed on an object, which also gets the release.
    bool m_objectHasMouse = false;
    std::optional<CRect> m_band;
    /// Where a band that selects objects was begun, in screen pixels.
    std::optional<Point> m_bandFrom;
    QPointer<DesktopTextInPlace> m_text;
};

} // namespace vantrel
