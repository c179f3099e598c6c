#pragma once

#include "station/compose/TrackElements.h"
#include <array>

namespace vantrel {

class Operator;
class Session;

inline constexpr int TrackCount = 3;

/// What a track would carry with the last record, shown while it is composed.
struct TrackPreview
{
    /// What goes onto the stripe, without the printer's command text around it.
    QString Text;
    /// Why there is nothing, where that is so.
    QString Remark;
};

/// Composes the formulas of the page's three tracks. Rows are read once and written on saving; in
/// between nothing of the page changes. A track number other than 1 to 3 fails with
/// `SubscriptOutOfRange`.
class TrackComposer
{
public:
    /// Reads the rows of the page that is open.
    explicit TrackComposer(Session& session);

    /// Whether there is a layout to compose for.
    bool HasLayout() const;
    std::vector<ElementNode> Nodes() const;

    const TrackElements& Row(int track) const;
    /// The element of a row, counted from 0; none where the row has no such one.
    TrackElement* Find(int track, int index);
    /// 0 for none, else 1 to 3.
    int SelectedTrack() const { return m_selectedTrack; }
    void Select(int track);

    /// Appends an element to a row.
    void AddTrackElement(int track, TokenKind kind, const QString& text);
    /// Selects the row and appends what a node of this key stands for.
    void Drop(int track, const QString& key);
    /// Gives a formatted field what the padding dialog left, and forgets that, but for the field.
    void TakePad(int track, int index);
    /// Removes all elements of the selected row; without one the operator is told to select it.
    void ClearTrack();

    /// Writes one row into the page's parameters. @return the formula
    QString Ostrand_Encode(std::int16_t track);
    /// Writes all rows and stores the page's parameters. Fails like `SaveLayoutParams`.
    void Save();

    /// What the row would give if it were saved now; changes nothing.
    TrackPreview Preview(int track) const;

private:
    static std::size_t IndexOf(int track);

    Session& m_session;
    std::array<TrackElements, TrackCount> m_rows;
    int m_selectedTrack = 0;
};

/// Asks for the text of a literal. Events run meanwhile. @return empty where it is cancelled
QString AskStaticText(Operator& stationOperator, const QString& present);

} // namespace vantrel
