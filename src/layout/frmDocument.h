#pragma once

#include <QImage>
#include <QMdiSubWindow>

namespace vantrel {

class Session;

/// The card on the workspace. It paints the document through the renderer that paints the paper,
/// and comes, goes and changes with the document's signals. While it is out of sight it costs
/// nothing.
class frmDocument : public QMdiSubWindow
{
    Q_OBJECT

public:
    explicit frmDocument(Session& session, QWidget* parent = nullptr);

    /// Takes over place, size and visibility of the document.
    void Mirror();
    /// The card as it is shown, drawn anew if it has changed.
    const QImage& CardPicture();

protected:
    void paintEvent(QPaintEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void MirrorSoon();
    void DrawCard();

    Session& m_session;
    QImage m_card;
    bool m_stale = true;
    bool m_mirrorAsked = false;
};

} // namespace vantrel
