#pragma once

#include "support/TestSession.h"

namespace vantrel::test {

/// A program folder with a layout of two fields that prints each record on the built-in printer.
class StationFolder : public TestSession
{
public:
    StationFolder();

    void AddCameraObject();
    /// Gives the page an automatic number that begins with this one.
    void AddAutoNumber(double seed);
    /// Makes a start open that layout and listen on a free port. @return the port
    int WithCapture(std::uint8_t sessionNumber = 1);
    void SetStatus(const char* key, const QString& value) const;
    void SetSetting(const char* key, const QString& value) const;
    /// Sets a key of the section "Station", which all sessions share.
    void SetOption(const char* key, const QString& value) const;
    QString Setting(const char* key) const;
    /// The status the station writes: beside its folder, under the folder's name.
    QString WrittenVisible() const;
    /// Hides the station and waits until it has obeyed, which it does once its window is loaded. A
    /// status that it reads while it starts is no change to it, so both values are written in turn
    /// until it answers.
    bool WaitUntilLoadedAndHidden() const;
    QString PathOfCard(int number) const;
    /// Waits for the card of that number and reads it.
    QString TextOfCard(int number) const;
    /// Paths of the finished cards of a session, in their order.
    QStringList Cards(int sessionNumber = 1) const;
    /// The result of SQLite's integrity check of the store; "ok" where it is sound, or a server
    /// keeps it.
    QString StoreIntegrity() const;

private:
    void Set(const QString& path, const char* key, const QString& value) const;
    QString Get(const QString& path, const char* key) const;
};

/// Sends a record as a host does, on a connection of its own.
void SendRecord(int port, const QByteArray& record);

} // namespace vantrel::test
