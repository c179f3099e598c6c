#include "road/DiskHistory.h"
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <utility>

namespace vantrel::test {

namespace {

constexpr std::uint64_t SectorBytes = 512;

std::uint64_t InodeOf(const QString& path)
{
    struct stat about
    {};
    EXPECT_EQ(::lstat(QFile::encodeName(path).constData(), &about), 0) << qPrintable(path);
    return about.st_ino;
}

QByteArray BytesOf(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
    return file.readAll();
}

QString FolderOf(const QString& path)
{
    return path.section(QLatin1Char('/'), 0, -2);
}

void Extend(QByteArray& content, std::uint64_t length)
{
    if (content.size() < static_cast<qsizetype>(length))
        content.append(static_cast<qsizetype>(length) - content.size(), '\0');
}

void PutBytes(QByteArray& content, std::uint64_t offset, QByteArrayView bytes)
{
    Extend(content, offset + static_cast<std::uint64_t>(bytes.size()));
    std::memcpy(content.data() + offset, bytes.data(), static_cast<std::size_t>(bytes.size()));
}

} // namespace

DiskHistory::DiskHistory(const QString& folder) : m_folder(QDir::cleanPath(folder))
{
    ReadFolder(m_folder);
    QDirIterator below(m_folder, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                       QDirIterator::Subdirectories);
    while (below.hasNext())
        ReadFolder(below.next());
}

void DiskHistory::ReadFolder(const QString& path)
{
    const bool isFolder = QFileInfo(path).isDir();
    const QString within = Within(QFile::encodeName(path));
    const std::size_t object = Add(
        InodeOf(path), {.IsFolder = isFolder, .Bytes = isFolder ? QByteArray() : BytesOf(path)});
    m_namesAtBeginning[within] = object;
    if (isFolder)
        m_folders[within] = object;
}

std::size_t DiskHistory::Add(std::uint64_t inode, Object object)
{
    object.Begun = m_events.size();
    m_objects.push_back(std::move(object));
    m_byInode[inode] = m_objects.size() - 1;
    return m_objects.size() - 1;
}

std::size_t DiskHistory::Find(std::uint64_t inode) const
{
    const auto found = m_byInode.find(inode);
    return found == m_byInode.end() ? Nothing : found->second;
}

QString DiskHistory::Within(const QByteArray& path) const
{
    const QString whole = QDir::cleanPath(QFile::decodeName(path));
    if (whole == m_folder)
        return QStringLiteral("");
    return whole.startsWith(m_folder + QLatin1Char('/')) ? whole.mid(m_folder.size() + 1)
                                                         : QString();
}

void DiskHistory::Read(const QString& recordFile)
{
    const QByteArray record = BytesOf(recordFile);
    qsizetype place = 0;
    const auto take = [&](std::uint32_t bytes) {
        QByteArray part = record.mid(place, bytes);
        EXPECT_EQ(part.size(), bytes);
        place += bytes;
        return part;
    };
    while (place < record.size()) {
        DiskRecord head{};
        const QByteArray headBytes = take(sizeof head);
        ASSERT_EQ(headBytes.size(), static_cast<qsizetype>(sizeof head));
        std::memcpy(&head, headBytes.constData(), sizeof head);
        const QByteArray path = take(head.PathBytes);
        const QByteArray other = take(head.OtherPathBytes);
        Event event = EventOf(head, path.isEmpty() ? QString() : Within(path),
                              other.isEmpty() ? QString() : Within(other));
        event.Bytes = take(head.Bytes);
        m_events.push_back(std::move(event));
    }
}

DiskHistory::Event DiskHistory::EventOf(const DiskRecord& head, const QString& path,
                                        const QString& other)
{
    Event event;
    event.Kind = head.Event;
    event.Offset = head.Offset;
    event.Path = path;
    event.OtherPath = other;
    switch (head.Event) {
    case DiskEvent::NewFile:
    case DiskEvent::NewFolder:
        event.Object = Add(head.Inode, {.IsFolder = head.Event == DiskEvent::NewFolder});
        if (head.Event == DiskEvent::NewFolder && !path.isNull())
            m_folders[path] = event.Object;
        break;
    case DiskEvent::Sent:
    case DiskEvent::RemoveName:
        break;
    default:
        event.Object = Find(head.Inode);
    }
    const QString& changed = head.Event == DiskEvent::Rename && !other.isNull() ? other : path;
    if (!changed.isNull())
        event.Folder = m_folders.at(FolderOf(changed));
    return event;
}

void DiskHistory::ApplyName(const Event& event, Names& names)
{
    if (event.Kind == DiskEvent::Rename || event.Kind == DiskEvent::RemoveName)
        names.erase(event.Path);
    const QString& name = event.Kind == DiskEvent::Rename ? event.OtherPath : event.Path;
    if (event.Object != Nothing && !name.isNull())
        names[name] = event.Object;
}

QByteArray& DiskHistory::ContentOf(std::size_t object, Disk& disk) const
{
    return disk.Contents.try_emplace(object, m_objects[object].Bytes).first->second;
}

void DiskHistory::ApplyBytes(const Event& event, Disk& disk) const
{
    QByteArray& content = ContentOf(event.Object, disk);
    if (event.Kind == DiskEvent::Write)
        PutBytes(content, event.Offset, event.Bytes);
    if (event.Kind == DiskEvent::Length) {
        content.truncate(static_cast<qsizetype>(event.Offset));
        Extend(content, event.Offset);
    }
}

void DiskHistory::ApplyPart(const Event& event, Disk& disk, double chance,
                            std::mt19937& random) const
{
    std::bernoulli_distribution arrives(chance);
    if (event.Kind != DiskEvent::Write) {
        if (arrives(random))
            ApplyBytes(event, disk);
        return;
    }
    QByteArray& content = ContentOf(event.Object, disk);
    const std::uint64_t end = event.Offset + static_cast<std::uint64_t>(event.Bytes.size());
    for (std::uint64_t from = event.Offset; from < end;) {
        const std::uint64_t to = std::min(end, (from / SectorBytes + 1) * SectorBytes);
        if (arrives(random))
            PutBytes(content, from,
                     QByteArrayView(event.Bytes)
                         .sliced(static_cast<qsizetype>(from - event.Offset),
                                 static_cast<qsizetype>(to - from)));
        else
            ++m_lost;
        from = to;
    }
    // A file can have its new length before it has its bytes.
    if (arrives(random))
        Extend(content, end);
}

std::vector<std::size_t> DiskHistory::ForcedUpTo(std::size_t cut) const
{
    std::vector<std::size_t> forced(m_objects.size(), 0);
    for (std::size_t i = 0; i < cut; ++i) {
        const Event& event = m_events[i];
        if (event.Kind == DiskEvent::Force && event.Object != Nothing)
            forced[event.Object] =
                std::max<std::size_t>(forced[event.Object], static_cast<std::size_t>(event.Offset));
    }
    return forced;
}

void DiskHistory::MakeStateAfterCut(std::size_t cut, std::mt19937& random,
                                    const QString& target) const
{
    constexpr double chances[] = {0, 0.5, 1};
    const double namesChance = chances[random() % std::size(chances)];
    const double bytesChance = chances[random() % std::size(chances)];
    std::bernoulli_distribution nameArrives(namesChance);
    const std::vector<std::size_t> forced = ForcedUpTo(cut);
    Disk disk{.Paths = m_namesAtBeginning, .Contents = {}};
    for (std::size_t i = 0; i < cut; ++i) {
        const Event& event = m_events[i];
        if (event.ChangesNames()) {
            if (i < forced[event.Folder] || nameArrives(random))
                ApplyName(event, disk.Paths);
            else
                ++m_lost;
        } else if (event.ChangesBytes()) {
            if (i < forced[event.Object])
                ApplyBytes(event, disk);
            else
                ApplyPart(event, disk, bytesChance, random);
        }
    }
    Put(disk, target);
}

void DiskHistory::Put(const Disk& disk, const QString& target) const
{
    // A folder's path comes before those below it.
    for (const auto& [path, object] : disk.Paths) {
        const QString whole = target + QLatin1Char('/') + path;
        if (m_objects[object].IsFolder) {
            QDir().mkdir(whole);
            continue;
        }
        // What stood in a folder that has lost its name is lost with it.
        QFile file(whole);
        if (!QFileInfo(whole).dir().exists())
            continue;
        ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << qPrintable(whole);
        const auto content = disk.Contents.find(object);
        const QByteArray& bytes =
            content == disk.Contents.end() ? m_objects[object].Bytes : content->second;
        ASSERT_EQ(file.write(bytes), bytes.size());
    }
}

QByteArray DiskHistory::SentBefore(std::size_t cut) const
{
    QByteArray sent;
    for (std::size_t i = 0; i < cut; ++i) {
        if (m_events[i].Kind == DiskEvent::Sent)
            sent += m_events[i].Bytes;
    }
    return sent;
}

std::map<QString, DiskHistory::File> DiskHistory::FilesAtEnd() const
{
    Disk disk{.Paths = m_namesAtBeginning, .Contents = {}};
    for (const Event& event : m_events) {
        if (event.ChangesNames())
            ApplyName(event, disk.Paths);
        else if (event.ChangesBytes())
            ApplyBytes(event, disk);
    }
    std::map<QString, File> files;
    for (const auto& [path, object] : disk.Paths) {
        if (!m_objects[object].IsFolder)
            files[path] = {ContentOf(object, disk), m_objects[object].Begun};
    }
    return files;
}

} // namespace vantrel::test
