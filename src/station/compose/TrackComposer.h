#pragma once

#include "station/compose/TrackElements.h"
#include <array>

namespace vantrel {

class Operator;
class Session;

inline constexpr int TrackCount = 3;

/// Preview of a track with the values of the last record.
struct TrackPreview
{
    /// The data for the stripe, without the printer's command text around it.
    QString Text;
    /// The reason if there is no data.
    QString Remark;
};

/// Edits the formulas of the page's three tracks. They are read once and written by a save; the
/// page does not change in between. A track number outside 1 to 3 fails with `SubscriptOutOfRange`.
class TrackComposer
{
public:
    /// Reads the formulas of the open page.
    explicit TrackComposer(Session& session);

    /// Whether a layout is open.
    bool HasLayout() const;
    /// The nodes of the tree.
    std::vector<ElementNode> Nodes() const;

    /// The elements of a track, 1 to 3.
    const TrackElements& Row(int track) const;
    /// The element of a track at an index from 0, or null if there is none.
    TrackElement* Find(int track, int index);
    /// The selected track, 1 to 3, or 0 for none.
    int SelectedTrack() const { return m_selectedTrack; }
    void Select(int track);

    /// Appends an element to a track.
    void AddTrackElement(int track, TokenKind kind, const QString& text);
    /// Selects the track and appends the element of a node's key.
    void Drop(int track, const QString& key);
    /// Sets the padding of a formatted field from the result of the padding dialog, then resets the
    /// result except for the field.
    void TakePad(int track, int index);
    /// Removes all elements of the selected track. If none is selected, the operator is asked to
    /// select one.
    void ClearTrack();

    /// Writes the formula of one track into the page's parameters. @return the formula
    QString Ostrand_Encode(std::int16_t track);
    /// Writes all formulas and stores the page's parameters. Fails like `SaveLayoutParams`.
    void Save();

    /// The data of the track if it were saved now; changes nothing.
    TrackPreview Preview(int track) const;

private:
    static std::size_t IndexOf(int track);

    Session& m_session;
    std::array<TrackElements, TrackCount> m_rows;
    int m_selectedTrack = 0;
};

/// Asks for the text of a literal; runs events. @return empty if cancelled
QString AskStaticText(Operator& stationOperator, const QString& present);

} // namespace vantrel
