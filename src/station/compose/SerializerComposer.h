#pragma once

#include "station/compose/StreamElement.h"

namespace vantrel {

class Operator;
class Session;

/// Composes the output stream of the open layout and the filter of its values. Both are read once
/// and written on saving. Every step of reading and of saving that fails is passed over.
class SerializerComposer
{
public:
    /// Reads the row and the filter of the open layout.
    explicit SerializerComposer(Session& session);

    std::vector<ElementNode> Nodes() const;
    const std::vector<StreamElement>& Row() const { return m_row; }
    /// The element counted from 0; none where the row has no such one.
    StreamElement* Find(int index);
    /// The filter as it is stored, its codes decoded.
    const QString& Filter() const { return m_filter; }

    /// Appends what a node of this key stands for; nothing for a key that makes no element.
    void Drop(const QString& key);
    /// Removes all elements; nothing is stored until `SaveStreamElements`.
    void Clear();
    /// Remembers which element, counted from 0, is to be removed.
    void Remember(int index) { m_remembered = index; }
    /// Removes the element remembered, if it is still there.
    void RemoveRemembered();

    /// Replaces the stored row, and writes the filter to the first page of the layout and into
    /// memory. Without an open layout there is none to keep them for, and nothing is written.
    /// @param filterText  as typed, "[HH]" codes among it
    void SaveStreamElements(const QString& filterText);

    /// The line that would be sent if the row were saved now. Raises no number, changes nothing.
    QString Preview(const QString& filterText) const;

private:
    void ReadRow();
    void ReadFilter();
    void WriteRow() const;
    void WriteFilter(const QString& filter) const;

    static constexpr int None = -1;

    Session& m_session;
    std::vector<StreamElement> m_row;
    QString m_filter;
    int m_remembered = None;
};

/// Asks for the text of a text element. Events run meanwhile. @return empty where it is cancelled
QString AskStreamText(Operator& stationOperator);

} // namespace vantrel
