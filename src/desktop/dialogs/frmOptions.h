#pragma once

#include "station/session/StationOptions.h"
#include <QDialog>

class QGridLayout;
class QLabel;

namespace vantrel {

class Session;

/// The options of the station, all of which are off in a station as it is first installed: what
/// each changes and what it keeps. They are written when they are saved.
class frmOptions : public QDialog
{
    Q_OBJECT

public:
    frmOptions(Session& session, QWidget* parent);

private:
    /// Width of an explanation, in pixels.
    int Widest() const;
    QWidget* MakePage(const QString& group);
    QLayout* MakeButtons();
    void AddRow(QGridLayout& grid, const StationOptionRow& row);
    QWidget* MakeTick(const StationOptionRow& row);
    QWidget* MakeNumber(const StationOptionRow& row);
    QWidget* MakeChoice(const StationOptionRow& row);
    QWidget* MakeFolder(const StationOptionRow& row);
    QWidget* MakeBrowse(const StationOptionRow& row, QWidget& folder);
    QWidget* MakeField(const StationOptionRow& row);
    void ShowTold();
    void Take(const StationOptionRow& row, const QString& text);
    void Save();

    Session& m_session;
    /// As they stand in the settings file, and as they are entered.
    StationOptions m_stored;
    StationOptions m_entered;
    QLabel* m_told;
};

} // namespace vantrel
