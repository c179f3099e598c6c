#include "station/session/BufferedRecord.h"
#include "base/InputText.h"
#include "ports/FramedValues.h"
#include "station/session/Session.h"

namespace vantrel {

bool VT5_BufferedRecord::Create_From_Stream(const StationSettings& settings, QString& text)
{
    if (text.isEmpty())
        return false;
    RawData = text;
    FieldValues values;
    ParseWithoutCut(text, settings.Framing, settings.Filters,
                    [&](const QString& value) { values.Add(ShownInput(value)); });
    if (values.Count() > 0)
        DataFields = values;
    TimeCreated = QDateTime::currentDateTime();
    Valid = true;
    return true;
}

bool VT5_BufferedRecordQue::AddRecord(std::shared_ptr<VT5_BufferedRecord> record)
{
    BufferedRecords.push_back(std::move(record));
    ++RecordCount;
    return true;
}

bool VT5_BufferedRecordQue::FlushRecords()
{
    BufferedRecords.clear();
    RecordCount = 0;
    return true;
}

void BufferRecord(VT5_BufferedRecordQue& queue, const StationSettings& settings, QString& text)
{
    auto record = std::make_shared<VT5_BufferedRecord>();
    record->Create_From_Stream(settings, text);
    queue.AddRecord(std::move(record));
}

} // namespace vantrel
