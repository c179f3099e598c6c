#pragma once

#include <QWidget>

class QLabel;

namespace vantrel {

struct ValueSample;

/// Two lines of a dialog of the design tools: a value, and what it prints as. They change while the
/// operator types. What is too long for the dialog ends in an ellipsis.
class DesktopSample : public QWidget
{
    Q_OBJECT

public:
    /// @param characters  the width, in average characters
    DesktopSample(int characters, QWidget* parent);

    void Show(const ValueSample& sample);

private:
    QLabel* m_value;
    QLabel* m_printed;
};

} // namespace vantrel
