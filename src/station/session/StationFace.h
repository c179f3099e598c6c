#pragma once

#include "drawing/Picture.h"
#include "station/session/MenuState.h"
#include <QObject>
#include <QString>
#include <array>
#include <cstdint>
#include <variant>

namespace vantrel {

/// Images of the notification icon. `NoHandle` is an empty picture.
enum class TrayImage { NoHandle = 0, Waiting = 1, Flash = 2, Disabled = 3 };

/// Tooltips of the notification icon.
namespace TrayTip {
inline constexpr QLatin1StringView Added{"Vantrel Version 6"};
inline constexpr QLatin1StringView Waiting{"Vantrel v5 (Waiting...)"};
inline constexpr QLatin1StringView Disabled{"Vantrel v5 (Disabled)"};
inline constexpr QLatin1StringView Receiving{"Vantrel v5 (Receiving Data)"};
} // namespace TrayTip

/// The panel of the status bar that tells what came last.
inline constexpr int LastArrivalPanel = 3;

/// A panel of the status bar.
struct Panel
{
    QString Text;
    QString ToolTip;
};

/// Background of the main window: none, a colour number, or a picture.
using BackgroundSetting = std::variant<std::monostate, double, Picture>;

/// The state that the main window, its menus and the notification icon show. The engine writes it,
/// and the desktop follows its signals, which are emitted directly and so in order.
class StationFace : public QObject
{
    Q_OBJECT

public:
    StationFace();

    const QString& Caption() const { return m_caption; }
    void SetCaption(const QString& text);

    /// @param number  1 port state, 2 layout, 3 last arrival
    const Panel& StatusPanel(int number) const;
    void SetPanelText(int number, const QString& text);
    void SetPanelToolTip(int number, const QString& text);

    /// Whether a menu entry is ticked.
    bool IsTicked(Tick tick) const { return m_ticks[static_cast<std::size_t>(tick)]; }
    void SetTick(Tick tick, bool on);

    bool IsEntryVisible(ObjectEntry entry) const
    {
        return m_entries[static_cast<std::size_t>(entry)];
    }
    void SetEntryVisible(ObjectEntry entry, bool visible);
    /// Whether `mnuProperties` can be opened; true while an object is selected.
    bool PropertiesEnabled() const { return m_propertiesEnabled; }
    void SetPropertiesEnabled(bool enabled);
    /// Caption of the entry that hides or shows the windows.
    const QString& HideCaption() const { return m_hideCaption; }
    void SetHideCaption(const QString& text);
    /// Requests that a menu opens at the pointer.
    void AskPopUp(PopUp menu) { Q_EMIT PopUpAsked(menu); }

    /// Image and tooltip of the notification icon.
    TrayImage TrayPicture() const { return m_trayImage; }
    const QString& TrayTip() const { return m_trayTip; }
    void SetTray(TrayImage image, const QString& tip);
    /// Whether this session shows its icon in the notification area.
    bool IsTrayShown() const { return m_trayShown; }
    void SetTrayShown(bool shown);

    /// The menu of the last record's values.
    const FieldMenu& Fields() const { return m_fields; }
    void SetFields(const FieldMenu& fields);

    /// Signals that the station's windows are to be shown or hidden.
    void NotifyVisibility(bool visible) { Q_EMIT VisibilityChanged(visible); }
    /// Signals that the background setting has changed.
    void NotifyBackground() { Q_EMIT BackgroundChanged(); }
    /// Signals that the processing of a record starts; the icon flashes.
    void NotifyRecordBegun() { Q_EMIT RecordBegun(); }
    /// Signals that the steps of the designer, or its selection, have changed.
    void NotifyDesign() { Q_EMIT DesignChanged(); }
    /// Signals that the operator has confirmed the exit.
    void NotifyExitConfirmed() { Q_EMIT ExitConfirmed(); }

Q_SIGNALS:
    /// Each is emitted when the state of the same name has changed, or was requested above.
    void CaptionChanged(const QString& text);
    void PanelChanged(int number);
    void TickChanged(vantrel::Tick tick, bool on);
    void EntryVisibleChanged(vantrel::ObjectEntry entry, bool visible);
    void PropertiesEnabledChanged(bool enabled);
    void HideCaptionChanged(const QString& text);
    void PopUpAsked(vantrel::PopUp menu);
    void TrayChanged();
    void FieldsChanged();
    void VisibilityChanged(bool visible);
    void BackgroundChanged();
    void RecordBegun();
    void DesignChanged();
    void ExitConfirmed();

private:
    QString m_caption;
    std::array<Panel, 3> m_panels;
    std::array<bool, TickCount> m_ticks{};
    std::array<bool, ObjectEntryCount> m_entries;
    bool m_propertiesEnabled = true;
    QString m_hideCaption = QStringLiteral("Hide Vantrel...");
    TrayImage m_trayImage = TrayImage::Disabled;
    QString m_trayTip;
    bool m_trayShown = false;
    FieldMenu m_fields;
};

} // namespace vantrel
