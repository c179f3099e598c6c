#pragma once

#include "app/StationFace.h"
#include "app/StationSettings.h"
#include "capture/BufferedRecord.h"
#include "capture/Comm.h"
#include "capture/FieldValues.h"
#include "capture/InputBuffer.h"
#include "capture/SockArray.h"
#include "layout/CardDocument.h"
#include "layout/LayoutParams.h"
#include "platform/Connection.h"
#include "shaping/PadResult.h"

namespace vantrel {

class Operator;
class Printers;

/// All that one station process holds: made once in `main` and handed on by reference. It is data;
/// the verbs are free routines. Tests make as many as they like.
class Session
{
public:
    /// @param programFolder  where the database and the settings files are, without a slash at its
    /// end
    Session(QString programFolder, vantrel::Operator& stationOperator, vantrel::Printers& printers);
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    ~Session();

    /// @return a name in the program folder
    QString PathInFolder(const QString& name) const;

    const QString ProgramFolder;
    vantrel::Operator& Operator;
    vantrel::Printers& Printers;

    std::uint8_t SessionNumber = 1;
    /// This process shows the notification icon: it was started without a number.
    bool OwnsTrayIcon = true;

    StationSettings Settings;
    StationFace Face;

    /// Characters of all ports together that are no record yet.
    vantrel::InputBuffer InputBuffer;
    /// The last raw text, kept after the buffer is cleared. Shares the buffer's memory.
    QString LastRawData;
    vantrel::FieldValues FieldValues;
    VT5_BufferedRecordQue RecordQueue;
    SockArray Sock;
    vantrel::Comm Comm;

    Connection LayoutDb;
    /// The open layout; empty means none.
    QString CurrentLayoutName;
    LayoutParamsRecord CurrentParams;
    CardDocument Document;
    /// The last accepted camera picture.
    Picture CameraImage;
    /// The last picture of the camera or of a file, whole.
    Picture RawPicture;
    /// What the padding dialog left.
    PadResult Pad;
};

} // namespace vantrel
