#pragma once

#include "card/FieldValues.h"
#include <QDateTime>
#include <QVariant>
#include <memory>
#include <vector>

namespace vantrel {

struct StationSettings;

/// One kept record.
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

    /// Fills the record from a raw text, without framing it: what stood around the delimiters
    /// becomes part of the first or last value. The caller's text loses its delimiters too.
    /// @return false for an empty text; the record stays empty then
    bool Create_From_Stream(const StationSettings& settings, QString& text);
};

/// The kept records, in order of arrival; memory only.
struct VT5_BufferedRecordQue
{
    std::vector<std::shared_ptr<VT5_BufferedRecord>> BufferedRecords;
    std::int32_t RecordCount = 0;

    bool AddRecord(std::shared_ptr<VT5_BufferedRecord> record);
    bool FlushRecords();
};

/// Makes a record of `text` and adds it to the session's queue, filled or not. `text` loses its
/// delimiters.
void BufferRecord(VT5_BufferedRecordQue& queue, const StationSettings& settings, QString& text);

} // namespace vantrel
