#pragma once

#include "station/session/Operator.h"

namespace vantrel {

/// The operator of a station without a display. A box nobody can see must not hold up the records
/// behind it: each is told on stderr and answered at once, a question with No.
class UnattendedOperator : public Operator
{
public:
    bool ShowAppMessage(const QString& text, const QString& title,
                        AppMessageButtons buttons) override;
    void MessageBox(const QString& text, const QString& title, BoxIcon icon) override;
    bool AskYesNo(const QString& text, const QString& title) override;
    /// Nobody to ask: told and answered No.
    BoxAnswer AskYesNoCancel(const QString& text, const QString& title) override;
    /// These are cancelled at once.
    QString InputBox(const QString& prompt, const QString& title, const QString& present) override;
    std::optional<Font> AskFont(const Font& /*present*/) override { return std::nullopt; }
    std::optional<ColorValue> AskColor(ColorValue /*present*/) override { return std::nullopt; }
    /// Without a display there is nothing to open.
    void OpenCameraDialog() override {}
    void LetEventsRun() override;
    void ShowBusyPointer(bool /*busy*/) override {}
};

} // namespace vantrel
