#pragma once

#include "card/CardDocument.h"
#include "card/FieldValues.h"
#include "card/LayoutParamsRecord.h"
#include "card/PadResult.h"
#include "ports/Comm.h"
#include "ports/InputBuffer.h"
#include "ports/SockArray.h"
#include "station/session/BufferedRecord.h"
#include "station/session/StationFace.h"
#include "station/session/StationSettings.h"
#include "store/Connection.h"

namespace vantrel {

class Operator;
class Printers;

/// @return a name in a folder, which has no slash at its end
QString PathIn(const QString& folder, const QString& name);

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
