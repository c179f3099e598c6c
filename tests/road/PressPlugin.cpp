#include <QAction>
#include <QApplication>
#include <QGenericPlugin>
#include <QMenu>
#include <QTimer>

namespace {

constexpr int LookInterval = 20;

/// Whether an operator could choose the entry: it and the menus it stands in are enabled.
bool CanBeChosen(const QAction& entry)
{
    if (!entry.isEnabled())
        return false;
    const QList<QObject*> places = entry.associatedObjects();
    for (const QObject* place : places) {
        const auto* menu = qobject_cast<const QMenu*>(place);
        if (menu != nullptr && !CanBeChosen(*menu->menuAction()))
            return false;
    }
    return true;
}

/// Chooses one menu entry, once, as soon as that can be done.
class Press : public QObject
{
public:
    explicit Press(const QString& entry) : m_entry(entry)
    {
        QObject::connect(&m_look, &QTimer::timeout, this, [this] { Look(); });
        m_look.start(LookInterval);
    }

private:
    void Look()
    {
        const QWidgetList windows = QApplication::topLevelWidgets();
        for (const QWidget* window : windows) {
            auto* entry = window->findChild<QAction*>(m_entry);
            if (entry == nullptr || !CanBeChosen(*entry))
                continue;
            m_look.stop();
            entry->trigger();
            return;
        }
    }

    QString m_entry;
    QTimer m_look;
};

} // namespace

/// Loaded by a station program whose environment names it: "press:" and an entry's name.
class PressPlugin : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "PressPlugin.json")

public:
    QObject* create(const QString& /*key*/, const QString& entry) override
    {
        return new Press(entry);
    }
};

#include "PressPlugin.moc"
