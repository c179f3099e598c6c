#pragma once

#include <QLabel>

namespace vantrel {

/// A panel of the status bar. A text that is longer than the panel ends in an ellipsis; a tool tip
/// then shows it whole, unless the panel has a tool tip of its own.
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
    /// The text as it is shown.
    QString Elided() const;
};

} // namespace vantrel
