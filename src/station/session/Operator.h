#pragma once

#include "base/Color.h"
#include "base/Font.h"
#include <QString>
#include <optional>

namespace vantrel {

/// The icon of a plain message box.
enum class BoxIcon { None, Critical, Information };

/// The buttons of the application's own message box. With `YesNo` Enter means Yes; with `NoYes`,
/// which is for what cannot be undone, it means No.
enum class AppMessageButtons { OkOnly, YesNo, NoYes };

/// The answer to a question that can be cancelled.
enum class BoxAnswer { Yes, No, Cancel };

/// How the engine asks the operator and runs events. The desktop implements it with dialogs, tests
/// with prepared answers. Records are processed while a question is open.
class Operator
{
public:
    virtual ~Operator() = default;

    /// Shows the application's modal message box. @return whether Yes or OK was pressed
    virtual bool ShowAppMessage(const QString& text, const QString& title,
                                AppMessageButtons buttons) = 0;
    /// Shows a plain message box with one button.
    virtual void MessageBox(const QString& text, const QString& title, BoxIcon icon) = 0;
    /// Asks a question in a box above all other windows. @return whether Yes was pressed
    virtual bool AskYesNo(const QString& text, const QString& title) = 0;
    /// Asks a question that can be cancelled.
    virtual BoxAnswer AskYesNoCancel(const QString& text, const QString& title) = 0;
    /// Asks for one line of text, with `present` as the initial text. @return empty if cancelled
    virtual QString InputBox(const QString& prompt, const QString& title,
                             const QString& present) = 0;
    /// Shows the font dialog with `present` selected. @return nothing if cancelled
    virtual std::optional<Font> AskFont(const Font& present) = 0;
    /// Shows the colour dialog with `present` selected. @return nothing if cancelled
    virtual std::optional<ColorValue> AskColor(ColorValue present) = 0;
    /// Opens the camera dialog and returns at once.
    virtual void OpenCameraDialog() = 0;
    /// Runs pending events, which may process records, closed connections and timers. The caller
    /// must not hold references to card objects, rows or cursors across the call.
    virtual void LetEventsRun() = 0;
    /// Shows or hides the busy pointer during a print.
    virtual void ShowBusyPointer(bool busy) = 0;
};

} // namespace vantrel
