#pragma once

#include "card/DesignHistory.h"
#include "card/FieldValues.h"
#include "card/LayoutPage.h"
#include "card/PadResult.h"
#include "card/RecordPicture.h"
#include "ledger/RecordLedger.h"
#include "ports/Comm.h"
#include "ports/InputBuffer.h"
#include "ports/SockArray.h"
#include "station/session/BufferedRecord.h"
#include "station/session/HostInputs.h"
#include "station/session/Road.h"
#include "station/session/StationFace.h"
#include "station/session/StationOptions.h"
#include "station/session/StationSettings.h"
#include "store/Connection.h"
#include <map>
#include <memory>

namespace vantrel {

class CardKeeper;
class Operator;
class Printers;

/// @return the path of `name` in `folder`, which must have no slash at its end
QString PathIn(const QString& folder, const QString& name);

/// The whole state of one station process. It is created once in `main` and passed by reference to
/// the functions that work on it. Tests may create several.
class Session
{
public:
    /// @param programFolder  folder of the database and the settings files, without a slash at its
    /// end
    Session(QString programFolder, vantrel::Operator& stationOperator, vantrel::Printers& printers);
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    ~Session();

    /// @return the path of `name` in the program folder
    QString PathInFolder(const QString& name) const;

    const QString ProgramFolder;
    vantrel::Operator& Operator;
    vantrel::Printers& Printers;

    std::uint8_t SessionNumber = 1;
    /// Whether this process shows the notification icon; true if it was started without a session
    /// number.
    bool OwnsTrayIcon = true;

    StationSettings Settings;
    /// What is switched on for all sessions of this folder, as it was at the start.
    StationOptions Options;
    StationFace Face;

    /// Received characters of all ports that are not yet a complete record.
    vantrel::InputBuffer InputBuffer;
    /// The last raw text, which is kept after the buffer is cleared. It shares the buffer's memory.
    QString LastRawData;
    vantrel::FieldValues FieldValues;
    VT5_BufferedRecordQue RecordQueue;
    SockArray Sock;
    vantrel::Comm Comm;

    Connection LayoutDb;
    RecordLedger Ledger;
    /// The record whose cards are being printed; null if none is, or if no account of records is
    /// kept.
    RecordRunPtr Run;
    /// Keeps the account of the cards instead of the store and the ledger; null if those do.
    CardKeeper* Keeper = nullptr;
    /// Watches how a job at the print server ends; empty if that is not watched.
    std::function<void(int job)> WatchJob;
    /// Offers a record again that could not be taken because the ledger must be kept; empty if
    /// there is none.
    std::function<void()> OfferAgain;
    /// Whether another complete record is at hand, with whose card the ledger's changes are
    /// written.
    bool RecordWaits = false;
    /// Whether it was told that the ledger cannot be written.
    bool LedgerTroubleTold = false;
    /// Records that were answered while no ledger was kept; their numbers count from 1.
    qlonglong AnsweredRecords = 0;
    /// The page that the document window shows and on which the operator works.
    LayoutPage Surface;
    /// The parts of `Surface`: the open layout, empty for none, and what is open of it.
    QString& CurrentLayoutName = Surface.LayoutName;
    LayoutParamsRecord& CurrentParams = Surface.Params;
    CardDocument& Document = Surface.Document;
    /// Whether a page is the one that the window shows.
    bool Shows(const LayoutPage& page) const { return &page == &Surface; }
    /// Kept from record to record for `RecordPage`; null while a record prints on it, and where
    /// records share the surface.
    std::unique_ptr<LayoutPage> Behind;
    /// Automatic numbers that are on cards and could not be written into the store, by the keys of
    /// their rows. Kept with `Options.DesignTools` only.
    std::map<qlonglong, double> UnstoredNumbers;
    /// Where the pictures are that records name.
    PictureSource Pictures;
    /// The steps of the designer that can be taken back; kept with `Options.DesignTools` only.
    DesignHistory History;
    /// The last accepted camera picture.
    Picture CameraImage;
    /// The last uncropped picture of the camera or of a file.
    Picture RawPicture;
    /// The result of the padding dialog.
    PadResult Pad;

    /// Held while a record is processed or cards print.
    vantrel::Road Road;
    /// The inputs of the connections and serial ports; null if all share one. Destroyed before
    /// everything else here.
    std::unique_ptr<HostInputs> Inputs;
};

} // namespace vantrel
