#include "station/session/StationFace.h"
#include "base/Failure.h"

namespace vantrel {

QString FieldMenu::Caption(int number) const
{
    // Numbers of one and of two digits get different blanks so that the entries line up.
    const QString equals =
        number < 10 ? QStringLiteral("        =      ") : QStringLiteral("      =      ");
    return QStringLiteral("Data Field ") + QString::number(number) + equals + Values.Item(number);
}

StationFace::StationFace()
{
    m_entries.fill(true);
}

void StationFace::SetCaption(const QString& text)
{
    m_caption = text;
    Q_EMIT CaptionChanged(text);
}

const Panel& StationFace::StatusPanel(int number) const
{
    return m_panels.at(static_cast<std::size_t>(number - 1));
}

void StationFace::SetPanelText(int number, const QString& text)
{
    m_panels.at(static_cast<std::size_t>(number - 1)).Text = text;
    Q_EMIT PanelChanged(number);
}

void StationFace::SetPanelToolTip(int number, const QString& text)
{
    m_panels.at(static_cast<std::size_t>(number - 1)).ToolTip = text;
    Q_EMIT PanelChanged(number);
}

void StationFace::SetTick(Tick tick, bool on)
{
    m_ticks.at(static_cast<std::size_t>(tick)) = on;
    Q_EMIT TickChanged(tick, on);
}

void StationFace::SetEntryVisible(ObjectEntry entry, bool visible)
{
    m_entries.at(static_cast<std::size_t>(entry)) = visible;
    Q_EMIT EntryVisibleChanged(entry, visible);
}

void StationFace::SetPropertiesEnabled(bool enabled)
{
    if (enabled == m_propertiesEnabled)
        return;
    m_propertiesEnabled = enabled;
    Q_EMIT PropertiesEnabledChanged(enabled);
}

void StationFace::SetHideCaption(const QString& text)
{
    m_hideCaption = text;
    Q_EMIT HideCaptionChanged(text);
}

void StationFace::SetTray(TrayImage image, const QString& tip)
{
    m_trayImage = image;
    m_trayTip = tip;
    Q_EMIT TrayChanged();
}

void StationFace::SetTrayShown(bool shown)
{
    m_trayShown = shown;
    Q_EMIT TrayChanged();
}

void StationFace::SetFields(const FieldMenu& fields)
{
    m_fields = fields;
    Q_EMIT FieldsChanged();
}

} // namespace vantrel
