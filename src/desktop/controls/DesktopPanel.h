#pragma once

#include <QLabel>

namespace vantrel {

/// A panel of the status bar. A text that is longer than the panel ends in an ellipsis; the pointer
/// over it shows the text whole, where the panel has no tool tip of its own.
class DesktopPanel : public QLabel
{
    Q_OBJECT

public:
    explicit DesktopPanel(QWidget* parent = nullptr);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QRect TextRect() const;
    /// The text as it shows.
    QString Elided() const;
};

} // namespace vantrel
