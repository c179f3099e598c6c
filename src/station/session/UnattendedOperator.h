#pragma once

#include "station/session/Operator.h"

namespace vantrel {

/// The operator of a station without a display. Message boxes must not block the processing of
/// records, so each message is written to stderr and answered at once; questions are answered with
/// No.
class UnattendedOperator : public Operator
{
public:
    bool ShowAppMessage(const QString& text, const QString& title,
                        AppMessageButtons buttons) override;
    void MessageBox(const QString& text, const QString& title, BoxIcon icon) override;
    bool AskYesNo(const QString& text, const QString& title) override;
    /// Written to stderr and answered with No.
    BoxAnswer AskYesNoCancel(const QString& text, const QString& title) override;
    /// These dialogs are cancelled at once.
    QString InputBox(const QString& prompt, const QString& title, const QString& present) override;
    std::optional<Font> AskFont(const Font& /*present*/) override { return std::nullopt; }
    std::optional<ColorValue> AskColor(ColorValue /*present*/) override { return std::nullopt; }
    /// Does nothing.
    void OpenCameraDialog() override {}
    void LetEventsRun() override;
    void ShowBusyPointer(bool /*busy*/) override {}
};

} // namespace vantrel
