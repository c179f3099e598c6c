#pragma once

#include "card/CardObject.h"
#include "station/layout/DesignSurface.h"
#include <QImage>
#include <QMdiSubWindow>
#include <memory>
#include <optional>

namespace vantrel {

class CardDocument;
class Session;

/// The card on the workspace, and the designer's surface. It paints the document with the renderer
/// that also draws the printed page, and is shown, hidden and updated by the document's signals.
/// While it is hidden it does no work. Mouse events go to the routines of the design surface.
class frmDocument : public QMdiSubWindow, private DesignScreen
{
    Q_OBJECT

public:
    explicit frmDocument(Session& session, QWidget* parent = nullptr);
    ~frmDocument() override;

    /// Takes over place, size and visibility of the document.
    void Mirror();
    /// The card as it prints, drawn anew if it has changed.
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

protected:
    void paintEvent(QPaintEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
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
    void DrawCard();
    void PaintDesign(QPainter& painter) const;
    void PaintSelected(QPainter& painter) const;
    void TakeCursor(const QMouseEvent& event);
    void PressOnObject(CardObject& object, const QMouseEvent& event);
    void PressOnPage(const QMouseEvent& event);
    /// Stretches the band that selects objects from where it was begun to the pointer.
    void StretchBand();
    void SelectByBand();
    CardObject* GripAt(const QPointF& position) const;
    QRect BoxOf(const CardObject& object) const;

    Session& m_session;
    QImage m_card;
    bool m_stale = true;
    bool m_mirrorAsked = false;
    Point m_cursor;
    bool m_confined = false;
    /// Watches for the release of a drag while the form has the mouse.
    std::unique_ptr<QObject> m_releaseWatch;
    /// The button was pressed on an object, which also gets the release.
    bool m_objectHasMouse = false;
    std::optional<CRect> m_band;
    /// Where a band that selects objects was begun, in screen pixels.
    std::optional<Point> m_bandFrom;
};

} // namespace vantrel
