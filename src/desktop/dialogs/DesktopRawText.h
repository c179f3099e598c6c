#pragma once

#include <QPlainTextEdit>
#include <vector>

namespace vantrel {

/// A text box for raw text of any length. Long lines are cut into rows, so that only the visible
/// rows are laid out; a copied selection has the lines whole.
class DesktopRawText : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit DesktopRawText(QWidget* parent);

    void Show(const QString& text);
    /// The text as it was given, its line ends and control characters included.
    const QString& Text() const { return m_text; }
    /// Size of the visible text before an operator resizes the window, in pixels.
    void SetFirstSize(QSize size) { m_firstSize = size; }

    QSize sizeHint() const override { return m_firstSize; }

protected:
    QMimeData* createMimeDataFromSelection() const override;

private:
    QString m_text;
    /// For each row, whether it continues the line of the row before it.
    std::vector<bool> m_goesOn;
    QSize m_firstSize;
};

} // namespace vantrel
