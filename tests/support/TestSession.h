#pragma once

#include "station/session/Operator.h"
#include "station/session/Session.h"
#include "support/Print.h"
#include "support/RecordingPrinter.h"
#include "support/TestStore.h"
#include <QTemporaryDir>
#include <deque>
#include <functional>
#include <memory>
#include <vector>

namespace vantrel::test {

/// Answers from a list and keeps the questions. The routines in `WhileEventsRun` run inside the
/// next calls of `LetEventsRun`, one in each, so that every re-entry can be tested.
class TestOperator : public Operator
{
public:
    bool ShowAppMessage(const QString& text, const QString& title,
                        AppMessageButtons buttons) override;
    void MessageBox(const QString& text, const QString& title, BoxIcon icon) override;
    bool AskYesNo(const QString& text, const QString& title) override;
    BoxAnswer AskYesNoCancel(const QString& text, const QString& title) override;
    QString InputBox(const QString& prompt, const QString& title, const QString& present) override;
    std::optional<Font> AskFont(const Font& present) override;
    std::optional<ColorValue> AskColor(ColorValue present) override;
    void OpenCameraDialog() override { ++CameraDialogsOpened; }
    void LetEventsRun() override;
    void ShowBusyPointer(bool busy) override { Pointer.push_back(busy); }

    /// Answers to come; without one the answer is No.
    std::deque<bool> Answers;
    std::deque<std::function<void()>> WhileEventsRun;
    /// Answers of their kinds; without one a question is answered No and the others are cancelled.
    std::deque<BoxAnswer> BoxAnswers;
    std::deque<QString> Inputs;
    std::deque<Font> Fonts;
    std::deque<ColorValue> Colors;
    /// Runs while a message, a plain box, a question, an input box, a font or a colour dialog is
    /// open.
    std::function<void()> WhileAsked = [] {};

    /// Each as `title|text`.
    QStringList AppMessages;
    /// The buttons of each of them.
    std::vector<AppMessageButtons> MessageButtons;
    QStringList Boxes;
    QStringList CriticalBoxes;
    /// The icons of all plain boxes, in their order.
    std::vector<BoxIcon> Icons;
    QStringList Questions;
    /// Each as `title|prompt|present text`.
    QStringList InputBoxes;
    /// The values with which the dialogs were opened.
    std::vector<Font> FontsShown;
    std::vector<ColorValue> ColorsShown;
    int CameraDialogsOpened = 0;
    int EventsRuns = 0;
    std::vector<bool> Pointer;
};

/// A session in a temporary program folder, with printers that record and an operator that answers
/// from a list. The database is made and opened by `WithDatabase`.
class TestSession
{
public:
    explicit TestSession(const QStringList& printerNames = {QStringLiteral("Card Printer")});
    ~TestSession();

    /// Makes a fresh layout store and opens it: a file in the program folder, or one on a server.
    void WithDatabase();
    /// Writes a PNG of that size in pixels and one colour into the program folder. @return its path
    QString WritePng(const QString& name, int width, int height, QRgb color = 0xFF336699U) const;

    QTemporaryDir Folder;
    /// The layout store that `WithDatabase` has made.
    std::unique_ptr<TestStore> LayoutStore;
    TestOperator Operator;
    RecordingPrinters Printers;
    vantrel::Session Session;
};

} // namespace vantrel::test
