#pragma once

#include "card/FieldValues.h"
#include <QDateTime>
#include <QVariant>
#include <memory>
#include <vector>

namespace vantrel {

struct StationSettings;

/// One buffered record.
struct VT5_BufferedRecord
{
    FieldValues DataFields;
    QString RawData;
    QDateTime TimeCreated;
    std::int32_t RecordType = 0;
    std::int32_t ID = 0;
    QVariant Stream_Start;
    QVariant Stream_Delim;
    bool Valid = false;
    QVariant Stream_Stop;

    /// Fills the record from a raw text without framing: text outside the delimiters becomes part
    /// of the first or last value. The delimiters are also removed from the caller's text.
    /// @return false for an empty text; the record stays empty then
    bool Create_From_Stream(const StationSettings& settings, QString& text);
};

/// The buffered records in order of arrival; they are kept in memory only.
struct VT5_BufferedRecordQue
{
    std::vector<std::shared_ptr<VT5_BufferedRecord>> BufferedRecords;
    std::int32_t RecordCount = 0;

    /// Appends a record.
    bool AddRecord(std::shared_ptr<VT5_BufferedRecord> record);
    /// Deletes all records.
    bool FlushRecords();
};

/// Creates a record from `text` and adds it to the queue, even if it is empty. The delimiters are
/// removed from `text`.
void BufferRecord(VT5_BufferedRecordQue& queue, const StationSettings& settings, QString& text);

} // namespace vantrel
