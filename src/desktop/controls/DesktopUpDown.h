#pragma once

#include <QWidget>

class QLineEdit;
class QToolButton;

namespace vantrel {

/// A pair of arrows that counts up and down by one, beside a field or a label that shows the
/// number. Each arrow repeats while it is held; the arrow keys do the same while it has the focus.
class DesktopUpDown : public QWidget
{
    Q_OBJECT

public:
    /// @param counted  what is counted, for screen readers
    explicit DesktopUpDown(const QString& counted, QWidget* parent = nullptr);

    /// Sets both ends of the range and moves the value into it. At first the range is all integers.
    void SetRange(int least, int most);
    int Value() const { return m_value; }
    /// Sets the value, moved into the range, and signals it if that changes it.
    void SetValue(int value);

    /// Makes the field that shows the number as tall as the arrows, and makes the Tab key go from
    /// the field to the arrows. Both must already be in the same window.
    void StandBeside(QLineEdit& field);

    QToolButton& UpButton() const { return *m_up; }
    QToolButton& DownButton() const { return *m_down; }

Q_SIGNALS:
    /// An arrow was pressed, even at the end of the range.
    void Up();
    void Down();
    void ValueChanged(int value);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QToolButton* MakeArrow(const char* name, Qt::ArrowType arrow, void (DesktopUpDown::*press)());
    void PressUp();
    void PressDown();

    QToolButton* m_up;
    QToolButton* m_down;
    int m_value = 0;
    int m_least;
    int m_most;
};

} // namespace vantrel
