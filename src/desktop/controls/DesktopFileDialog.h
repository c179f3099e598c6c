#pragma once

#include <QObject>
#include <QString>

class QWidget;

namespace vantrel {

/// The one file dialog of the main window. Its commands share it: the next command finds the values
/// that the last one left.
class DesktopFileDialog : public QObject
{
    Q_OBJECT

public:
    /// The dialog of this window, made at its first use.
    static DesktopFileDialog& Of(QWidget& window);

    /// Shows the dialog and waits. A cancel leaves `FileName` unchanged.
    void ShowOpen();

    /// Path of the chosen file; before that, path of the file that the dialog begins with.
    QString FileName;
    /// A description, "|" and a pattern; empty shows every file.
    QString Filter;
    QString InitialFolder;

    /// Asks for a file to write, and whether to replace one that is there, and waits. It shares no
    /// values with the commands.
    /// @param name  the file that it begins with
    /// @param pattern  such as "*.csv"; its ending is added to a name without one
    /// @return empty if cancelled
    static QString AskFileToSave(QWidget& window, const QString& title, const QString& name,
                                 const QString& pattern);

    /// Asks for a folder that is there, and waits. It shares no values with the commands.
    /// @param folder  where it begins; may be empty
    /// @return empty if cancelled
    static QString AskFolder(QWidget& window, const QString& title, const QString& folder);

private:
    explicit DesktopFileDialog(QWidget& window);

    QWidget& m_window;
};

} // namespace vantrel
