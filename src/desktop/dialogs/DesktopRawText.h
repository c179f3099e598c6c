#pragma once

#include <QPlainTextEdit>
#include <vector>

namespace vantrel {

/// A text box for raw text of any length. Long lines are laid out in rows, which costs time only
/// for what is seen; a selection that is copied has them whole.
class DesktopRawText : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit DesktopRawText(QWidget* parent);

    void Show(const QString& text);
    /// The text as it was given, its line ends and control characters included.
    const QString& Text() const { return m_text; }
    /// Size of the text that shows before an operator resizes the window, pixels.
    void SetFirstSize(QSize size) { m_firstSize = size; }

    QSize sizeHint() const override { return m_firstSize; }

protected:
    QMimeData* createMimeDataFromSelection() const override;

private:
    QString m_text;
    /// Per row whether it goes on with the line of the row before it.
    std::vector<bool> m_goesOn;
    QSize m_firstSize;
};

} // namespace vantrel
