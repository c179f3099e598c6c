#pragma once

#include "base/Color.h"
#include "base/Font.h"
#include <QString>
#include <optional>

namespace vantrel {

/// The sign a plain message box shows.
enum class BoxIcon { None, Critical, Information };

/// The buttons of the application's own message box.
enum class AppMessageButtons { OkOnly, YesNo };

/// The answer to a question that can be left open.
enum class BoxAnswer { Yes, No, Cancel };

/// How the engine asks whoever sits at the station, and lets the station stay alive meanwhile. The
/// desktop answers with boxes, a test from a list.
class Operator
{
public:
    virtual ~Operator() = default;

    /// The application's modal message box. @return whether Yes or OK was pressed
    virtual bool ShowAppMessage(const QString& text, const QString& title,
                                AppMessageButtons buttons) = 0;
    /// A plain box with one button.
    virtual void MessageBox(const QString& text, const QString& title, BoxIcon icon) = 0;
    /// A plain question above all other windows. @return whether Yes was pressed
    virtual bool AskYesNo(const QString& text, const QString& title) = 0;
    /// A plain question with a question mark that can be cancelled.
    virtual BoxAnswer AskYesNoCancel(const QString& text, const QString& title) = 0;
    /// Asks for one line of text, `present` at first. @return empty where it is cancelled
    virtual QString InputBox(const QString& prompt, const QString& title,
                             const QString& present) = 0;
    /// The font dialog, opened on `present`. @return none where it is cancelled
    virtual std::optional<Font> AskFont(const Font& present) = 0;
    /// The colour dialog, opened on `present`. @return none where it is cancelled
    virtual std::optional<ColorValue> AskColor(ColorValue present) = 0;
    /// Opens the camera dialog without waiting for it.
    virtual void OpenCameraDialog() = 0;
    /// Lets pending events run; a record, a close or a timer may come in here. Hold no reference to
    /// a card object, row or cursor across it.
    virtual void LetEventsRun() = 0;
    /// The hourglass while a print is under way.
    virtual void ShowBusyPointer(bool busy) = 0;
};

} // namespace vantrel
