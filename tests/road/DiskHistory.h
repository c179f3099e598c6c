#pragma once

#include "road/DiskRecord.h"
#include <QByteArray>
#include <QString>
#include <map>
#include <random>
#include <vector>

namespace vantrel::test {

/// All that a program did to the files of a folder, from which the states follow that a power cut
/// can leave. What was forced to the disk before the cut is there, a name where its folder was
/// forced; of everything else any part may be there, of a write any of its sectors.
class DiskHistory
{
public:
    /// Reads the folder, all of which is on the disk. Called before the program starts.
    explicit DiskHistory(const QString& folder);
    /// Reads what the program did. Called when it has ended.
    void Read(const QString& recordFile);

    /// Power can be cut before each of so many events, or behind them all.
    std::size_t Events() const { return m_events.size(); }
    /// What was sent to sockets before an event.
    QByteArray SentBefore(std::size_t cut) const;
    /// The bytes of the files that had got a name when all was done, by path within the folder,
    /// and the event by which each was begun.
    struct File
    {
        QByteArray Bytes;
        std::size_t Begun = 0;
    };
    std::map<QString, File> FilesAtEnd() const;
    /// Makes one of the states that a cut before an event can leave.
    /// @param target  a folder that does not exist yet
    void MakeStateAfterCut(std::size_t cut, std::mt19937& random, const QString& target) const;
    /// How many changes the states made so far lack.
    std::size_t Lost() const { return m_lost; }

private:
    static constexpr std::size_t Nothing = static_cast<std::size_t>(-1);

    struct Event
    {
        DiskEvent Kind = DiskEvent::Sent;
        /// The file or folder in `m_objects`, or nothing of this folder.
        std::size_t Object = Nothing;
        /// The folder whose names it changes.
        std::size_t Folder = Nothing;
        std::uint64_t Offset = 0;
        /// Within the folder; null for one that is outside.
        QString Path;
        QString OtherPath;
        QByteArray Bytes;

        bool ChangesNames() const { return Folder != Nothing; }
        bool ChangesBytes() const
        {
            return Object != Nothing && (Kind == DiskEvent::Write || Kind == DiskEvent::Length);
        }
    };
    struct Object
    {
        bool IsFolder = false;
        /// What it held at the beginning.
        QByteArray Bytes = {};
        std::size_t Begun = 0;
    };
    /// By path within the folder.
    using Names = std::map<QString, std::size_t>;
    /// What is on a disk.
    struct Disk
    {
        Names Paths;
        std::map<std::size_t, QByteArray> Contents;
    };

    void ReadFolder(const QString& path);
    std::size_t Add(std::uint64_t inode, Object object);
    std::size_t Find(std::uint64_t inode) const;
    QString Within(const QByteArray& path) const;
    Event EventOf(const DiskRecord& head, const QString& path, const QString& other);
    static void ApplyName(const Event& event, Names& names);
    QByteArray& ContentOf(std::size_t object, Disk& disk) const;
    void ApplyBytes(const Event& event, Disk& disk) const;
    void ApplyPart(const Event& event, Disk& disk, double chance, std::mt19937& random) const;
    /// The number of the first event that is not forced to the disk, for each object.
    std::vector<std::size_t> ForcedUpTo(std::size_t cut) const;
    void Put(const Disk& disk, const QString& target) const;

    QString m_folder;
    std::vector<Object> m_objects;
    Names m_namesAtBeginning;
    std::map<std::uint64_t, std::size_t> m_byInode;
    /// Folders by path; a path is one folder only.
    Names m_folders;
    std::vector<Event> m_events;
    mutable std::size_t m_lost = 0;
};

} // namespace vantrel::test
