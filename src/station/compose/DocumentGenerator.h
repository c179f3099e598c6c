#pragma once

#include <QString>
#include <QStringList>
#include <vector>

namespace vantrel {

struct VT5_BufferedRecordQue;
class Session;

/// The kept records as the document generator lists them: one value of each.
class RecordList
{
public:
    explicit RecordList(VT5_BufferedRecordQue& queue);

    /// A valid record of the queue.
    struct Line
    {
        QString Text;
        QString RawData;
    };

    const std::vector<Line>& Lines() const { return m_lines; }
    /// Which value is shown, from 1.
    std::int16_t ViewedField() const { return m_viewedField; }
    /// Shows the next value or the one before. The list is built anew, and a record with fewer
    /// values pulls the number down to its own.
    void ViewNextField();
    void ViewFieldBefore();
    /// Takes all records out of the view for good; they stay in the queue.
    void Clear();
    /// Builds the list anew where the queue has grown. @return whether it did
    bool LookForRecords();

private:
    void Build();

    VT5_BufferedRecordQue& m_queue;
    std::vector<Line> m_lines;
    std::int16_t m_viewedField = 1;
    std::int32_t m_recordCount = 0;
};

/// Prints a raw record on each of the layouts in turn, as if a port had brought it, but without a
/// macro. No layout is open afterwards, also where one of them is gone. The record goes through
/// events: hold nothing of the document across it. What fails is passed over.
void PrintOnLayouts(Session& session, const QString& rawData, const QStringList& layouts);

} // namespace vantrel
