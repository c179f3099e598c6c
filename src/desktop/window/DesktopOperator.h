#pragma once

#include "station/session/Operator.h"
#include <QPointer>
#include <QWidget>
#include <functional>

namespace vantrel {

/// The operator at the screen: shows boxes and the hourglass, and runs the event loop.
class DesktopOperator : public Operator
{
public:
    /// Boxes are owned by this window from now on; until then they have no owner.
    void SetMainWindow(QWidget* window) { m_mainWindow = window; }

    bool ShowAppMessage(const QString& text, const QString& title,
                        AppMessageButtons buttons) override;
    void MessageBox(const QString& text, const QString& title, BoxIcon icon) override;
    bool AskYesNo(const QString& text, const QString& title) override;
    BoxAnswer AskYesNoCancel(const QString& text, const QString& title) override;
    QString InputBox(const QString& prompt, const QString& title, const QString& present) override;
    std::optional<Font> AskFont(const Font& present) override;
    std::optional<ColorValue> AskColor(ColorValue present) override;
    /// Sets the routine that opens the camera dialog; without one a request does nothing.
    void SetCameraDialog(std::function<void()> open) { m_openCamera = std::move(open); }
    void OpenCameraDialog() override;
    void LetEventsRun() override;
    void ShowBusyPointer(bool busy) override;

private:
    QPointer<QWidget> m_mainWindow;
    std::function<void()> m_openCamera;
    bool m_busy = false;
};

} // namespace vantrel
