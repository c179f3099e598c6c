#pragma once

#include "station/compose/SerializerComposer.h"
#include <QDialog>

class QLineEdit;

namespace vantrel {

class Session;

class DesktopElementRow;
class DesktopElementTree;

/// The window in which an operator composes the line that a layout sends instead of drawing a card.
class frmSerialize : public QDialog
{
    Q_OBJECT

public:
    frmSerialize(Session& session, QWidget* parent);

    /// Removes the element over which the right button was released last.
    void RemoveElement();

private:
    QLayout* MakeElementPart();
    QLayout* MakeStreamPart();
    QLayout* MakeButtons();

    void Drop(const QString& key);
    void OpenElement(int index);
    void OfferRemoval(int index, const QPoint& globalPosition);
    void Save();
    void ShowRow();
    void ShowText();

    Session& m_session;
    SerializerComposer m_composer;
    DesktopElementTree* m_tree;
    DesktopElementRow* m_stream;
    QLineEdit* m_preview;
    QLineEdit* m_filter;
};

} // namespace vantrel
