#pragma once

#include "base/InputText.h"
#include "card/RecordPicture.h"
#include "console/CardPictures.h"
#include "console/Metrics.h"
#include "store/Connection.h"
#include <QString>
#include <utility>

namespace vantrel::console {

/// The ledger of a program folder as the console uses it: a connection of its own, in a thread of
/// its own.
class ConsoleStore
{
public:
    /// Opens the ledger like `OpenFolderLedger`.
    explicit ConsoleStore(const QString& programFolder);

    /// Must be called before each question is answered, which gives a server its time anew.
    void BeginAnswer();
    const QString& ProgramFolder() const { return m_folder; }
    Connection& Store() { return m_store; }
    StoreDatabase& Database() { return m_store.Database(); }
    /// Must be called when this connection has changed the ledger, which it does not see as news.
    void NoteOwnChange() { m_ownChange = true; }
    bool TakeOwnChange() { return std::exchange(m_ownChange, false); }
    console::Metrics& Metrics() { return m_metrics; }
    CardPictures& Pictures() { return m_pictures; }
    /// Where the pictures are that records name, by the settings of the stations at the start.
    const PictureSource& PicturesOfRecords() const { return m_usual; }
    /// How the stations read what hosts send, likewise.
    InputEncoding Encoding() const { return m_encoding; }

private:
    QString m_folder;
    Connection m_store;
    console::Metrics m_metrics;
    CardPictures m_pictures;
    PictureSource m_usual;
    InputEncoding m_encoding;
    bool m_ownChange = false;
};

} // namespace vantrel::console
