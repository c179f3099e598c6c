#pragma once

#include "station/session/MenuState.h"
#include <QObject>
#include <vector>

class QAction;
class QMainWindow;
class QMenu;

namespace vantrel {

class Session;
struct MenuRow;
enum class Enabled;

/// The menus of the main window, made from the table of `MenuRows`. Each entry is a `QAction` of
/// the window under its own name, each menu a `QMenu`; named separators are actions too. They
/// follow the state of `StationFace`.
class MainMenu : public QObject
{
    Q_OBJECT

public:
    MainMenu(Session& session, QMainWindow& window);

    /// Enables and disables entries by whether the windows are shown and whether a layout is open.
    void UpdateEnabled();
    /// Sets the captions that the load of the main window gives.
    void UpdateStartCaptions();

private:
    /// A row that this station has, with its action; that of a menu is its own action.
    struct Entry
    {
        const MenuRow* Row;
        QAction* Action;
    };

    void Build();
    /// Sets the icons by the present captions.
    void SetIcons();
    QMenu* MakeMenu(const MenuRow& row);
    QAction* MakeCommand(const MenuRow& row);
    void MirrorFace();
    void MirrorTick(Tick tick, bool on);
    void MirrorEntry(ObjectEntry entry, bool visible);
    void MirrorFields();
    void FillFields();
    void MirrorProperties(bool enabled);
    void OpenPopUp(PopUp menu);
    bool Holds(Enabled when) const;
    /// Whether the entry does something else here than at a station without design tools.
    bool IsTool(const MenuRow& row) const;
    Enabled WhenOf(const MenuRow& row) const;
    /// Whether the row and the menus it stands in can be chosen at this moment.
    bool CanRun(const MenuRow& row) const;
    void Run(const MenuRow& row);
    void ChooseField(int number);
    QMenu* FindMenu(const char* name) const;
    QAction* Find(const char* name) const;

    Session& m_session;
    QMainWindow& m_window;
    std::vector<Entry> m_entries;
    /// Elements of the list of data fields from 1 on.
    std::vector<QAction*> m_fields;
};

} // namespace vantrel
