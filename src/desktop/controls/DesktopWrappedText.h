#pragma once

#include <QLabel>
#include <QTextLayout>

namespace vantrel {

/// A text in as many lines as it needs. Lines break between words, and within a word that is longer
/// than a line, such as a layout's name without blanks, which a plain label would cut off. A text
/// of more lines than a screen holds ends in an ellipsis.
class DesktopWrappedText : public QLabel
{
    Q_OBJECT

public:
    /// @param widest  the greatest width of a line, in pixels
    DesktopWrappedText(const QString& text, int widest, QWidget* parent = nullptr);

    QSize sizeHint() const override { return m_size; }
    QSize minimumSizeHint() const override { return m_size; }

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void BreakLines();
    /// Lays out the lines of that text. @return the place behind the last character that found room
    qsizetype LayOut(const QString& text);

    int m_widest;
    QTextLayout m_lines;
    QSize m_size;
};

} // namespace vantrel
