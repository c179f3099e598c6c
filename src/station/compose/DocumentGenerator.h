#pragma once

#include <QString>
#include <QStringList>
#include <vector>

namespace vantrel {

struct VT5_BufferedRecordQue;
class Session;

/// The document generator's list of buffered records, which shows one value of each.
class RecordList
{
public:
    /// @param queue  must outlive the list
    explicit RecordList(VT5_BufferedRecordQue& queue);

    /// One valid record of the queue.
    struct Line
    {
        QString Text;
        QString RawData;
    };

    /// The lines of the list; valid until it is rebuilt.
    const std::vector<Line>& Lines() const { return m_lines; }
    /// Number of the value that is shown, from 1.
    std::int16_t ViewedField() const { return m_viewedField; }
    /// Show the next or the previous value and rebuild the list. If a record has fewer values, the
    /// number is reduced to its last value.
    void ViewNextField();
    void ViewFieldBefore();
    /// Removes all records from the list permanently; they stay in the queue.
    void Clear();
    /// Rebuilds the list if the queue has grown. @return whether it was rebuilt
    bool LookForRecords();

private:
    void Build();

    VT5_BufferedRecordQue& m_queue;
    std::vector<Line> m_lines;
    std::int16_t m_viewedField = 1;
    std::int32_t m_recordCount = 0;
};

/// Prints a raw record on each of the layouts in order, like a received record but without a macro.
/// Afterwards no layout is open, even if one of them does not exist; where records print behind the
/// surface, nothing is opened or closed there. Runs pending events, so the caller must not hold
/// references into the document. A failing step is skipped. Nothing is printed if one of the
/// layouts is open and `MayPrintStored` says no.
void PrintOnLayouts(Session& session, const QString& rawData, const QStringList& layouts);

} // namespace vantrel
