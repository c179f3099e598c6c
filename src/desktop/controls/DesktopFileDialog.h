#pragma once

#include <QObject>
#include <QString>

class QWidget;

namespace vantrel {

/// The one file dialog of the main window, which its commands share: what one of them leaves in it,
/// the next one finds.
class DesktopFileDialog : public QObject
{
    Q_OBJECT

public:
    /// The one of this window, made at its first use.
    static DesktopFileDialog& Of(QWidget& window);

    /// Shows the dialog and waits. A cancelled one leaves `FileName` as it was.
    void ShowOpen();

    /// Path of the file chosen, and of the one to begin with.
    QString FileName;
    /// A description, "|" and a pattern; empty shows every file.
    QString Filter;
    QString InitialFolder;

private:
    explicit DesktopFileDialog(QWidget& window);

    QWidget& m_window;
};

} // namespace vantrel
