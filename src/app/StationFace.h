#pragma once

#include "platform/Picture.h"
#include <QObject>
#include <QString>
#include <QStringList>
#include <array>
#include <cstdint>
#include <variant>

namespace vantrel {

/// Menu entries that carry a tick.
enum class Tick { cmdDynamicLayout, chkAutoAdd, cmdCapEnable, chkAutoSpool };
inline constexpr int TickCount = 4;

/// Images of the notification icon.
enum class TrayImage { Waiting = 1, Flash = 2, Disabled = 3 };

/// Tips of the notification icon.
namespace TrayTip {
inline constexpr QLatin1StringView Waiting{"Vantrel v5 (Waiting...)"};
inline constexpr QLatin1StringView Disabled{"Vantrel v5 (Disabled)"};
} // namespace TrayTip

/// A panel of the status bar.
struct Panel
{
    QString Text;
    QString ToolTip;
};

/// The list of the last record's values as the menu shows it.
struct FieldMenu
{
    /// Captions from element 1 on, such as "Data Field 1        =      A".
    QStringList Captions;
    /// Whether the entry "Send a data stream..." shows.
    bool SendEntryVisible = true;
};

/// What the main window's background is: nothing, a colour number, or a picture.
using BackgroundSetting = std::variant<std::monostate, double, Picture>;

/// What the main window, its menus and the notification icon show, as plain state. The engine
/// writes it, the desktop mirrors it; direct signals keep the order.
class StationFace : public QObject
{
    Q_OBJECT

public:
    const QString& Caption() const { return m_caption; }
    void SetCaption(const QString& text);

    /// @param number  1 port state, 2 layout, 3 last arrival
    const Panel& StatusPanel(int number) const;
    void SetPanelText(int number, const QString& text);
    void SetPanelToolTip(int number, const QString& text);

    bool IsTicked(Tick tick) const { return m_ticks[static_cast<std::size_t>(tick)]; }
    void SetTick(Tick tick, bool on);

    TrayImage TrayPicture() const { return m_trayImage; }
    const QString& TrayTip() const { return m_trayTip; }
    void SetTray(TrayImage image, const QString& tip);

    const FieldMenu& Fields() const { return m_fields; }
    void SetFields(const FieldMenu& fields);

    /// Tells that the station shows or hides its windows from now on.
    void TellVisibility(bool visible) { Q_EMIT VisibilityChanged(visible); }
    /// Tells that a record has begun: the icon flashes.
    void TellRecordBegun() { Q_EMIT RecordBegun(); }

Q_SIGNALS:
    void CaptionChanged(const QString& text);
    void PanelChanged(int number);
    void TickChanged(vantrel::Tick tick, bool on);
    void TrayChanged();
    void FieldsChanged();
    void VisibilityChanged(bool visible);
    void RecordBegun();

private:
    QString m_caption;
    std::array<Panel, 3> m_panels;
    std::array<bool, TickCount> m_ticks{};
    TrayImage m_trayImage = TrayImage::Disabled;
    QString m_trayTip;
    FieldMenu m_fields;
};

} // namespace vantrel
