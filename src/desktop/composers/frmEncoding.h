#pragma once

#include "station/compose/TrackComposer.h"
#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;

namespace vantrel {

class Session;

class DesktopElementRow;
class DesktopElementTree;

/// The window in which an operator composes the formulas of the magnetic tracks from elements.
class frmEncoding : public QDialog
{
    Q_OBJECT

public:
    frmEncoding(Session& session, QWidget* parent);

    /// Writes one row into the page's parameters. @return the formula
    QString Ostrand_Encode(std::int16_t track) { return m_composer.Ostrand_Encode(track); }
    int SelectedTrack() const { return m_composer.SelectedTrack(); }

private:
    /// One track on the screen.
    struct TrackView
    {
        DesktopElementRow* Row = nullptr;
        QLineEdit* Preview = nullptr;
    };

    QLayout* MakeElementPart();
    QLayout* MakeTrackPart();
    QLayout* MakeButtons();
    TrackView MakeTrack(int track);

    void Append(const QString& key);
    void Drop(int track, const QString& key);
    void Select(int track);
    void OpenElement(int track, int index);
    void OpenPad(int track, int index);
    void OpenStaticText(int track, int index);
    void Save();
    void ShowRow(int track);
    void ShowSelected();
    void ShowPreviews();
    void EnableButtons();

    Session& m_session;
    TrackComposer m_composer;
    DesktopElementTree* m_tree;
    std::array<TrackView, TrackCount> m_tracks;
    QPushButton* m_clear;
    QPushButton* m_save;
};

} // namespace vantrel
