#pragma once

#include "station/compose/StreamElement.h"

namespace vantrel {

class Operator;
class Session;

/// Edits the output stream of the open layout and the filter of its values. Both are read once and
/// written by a save. A failing step of reading or saving is skipped.
class SerializerComposer
{
public:
    /// Reads the stream and the filter of the open layout.
    explicit SerializerComposer(Session& session);

    /// The nodes of the tree.
    std::vector<ElementNode> Nodes() const;
    const std::vector<StreamElement>& Row() const { return m_row; }
    /// The element at an index from 0, or null if there is none.
    StreamElement* Find(int index);
    /// The stored filter with its codes decoded.
    const QString& Filter() const { return m_filter; }

    /// Appends the element of a node's key; does nothing for a key without an element.
    void Drop(const QString& key);
    /// Removes all elements in memory; `SaveStreamElements` stores that.
    void Clear();
    /// Remembers the index, from 0, of the element to remove.
    void Remember(int index) { m_remembered = index; }
    /// Removes the remembered element if it still exists.
    void RemoveRemembered();

    /// Replaces the stored elements and writes the filter to the layout's first page and to memory.
    /// Writes nothing without an open layout.
    /// @param filterText  as typed, may contain "[HH]" codes
    void SaveStreamElements(const QString& filterText);

    /// The line that would be sent if the elements were saved now, or the beginning of a very long
    /// one. Does not raise automatic numbers.
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

/// Asks for the text of a text element; runs events. @return empty if cancelled
QString AskStreamText(Operator& stationOperator);

} // namespace vantrel
