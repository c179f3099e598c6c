#include "base/Profile.h"
#include "base/CodePage.h"
#include <QDeadlineTimer>
#include <QFile>
#include <QLockFile>
#include <QSaveFile>
#include <optional>

namespace vantrel {

namespace {

/// How long a write waits for the lock file of another session, and how long one attempt takes.
constexpr int lockPatienceMs = 5000;
constexpr int lockSliceMs = 5;

constexpr QByteArrayView lineEnd("\r\n");
constexpr QByteArrayView utf8Mark("\xEF\xBB\xBF");

QByteArrayView TrimmedBytes(QByteArrayView bytes)
{
    const auto isBlank = [](char byte) { return byte == ' ' || byte == '\t'; };
    while (!bytes.isEmpty() && isBlank(bytes.front()))
        bytes = bytes.sliced(1);
    while (!bytes.isEmpty() && isBlank(bytes.back()))
        bytes.chop(1);
    return bytes;
}

bool SameName(QByteArrayView bytes, const QString& name)
{
    // One byte is one character: most names differ by their length alone.
    return bytes.size() == name.size() &&
           FromCodePage(bytes).compare(name, Qt::CaseInsensitive) == 0;
}

/// Walks the lines of a settings file and keeps track of the current section.
class LineWalk
{
public:
    explicit LineWalk(QByteArrayView bytes) : m_bytes(bytes)
    {
        // Without this a byte order mark would hide the first section.
        if (bytes.startsWith(utf8Mark))
            m_next = utf8Mark.size();
    }

    bool Next()
    {
        if (m_next >= m_bytes.size())
            return false;
        Begin = m_next;
        const qsizetype feed = m_bytes.indexOf('\n', Begin);
        m_next = feed < 0 ? m_bytes.size() : feed + 1;
        End = m_next;

        QByteArrayView line = m_bytes.sliced(Begin, (feed < 0 ? m_next : feed) - Begin);
        if (feed >= 0 && line.endsWith('\r'))
            line.chop(1);
        line = TrimmedBytes(line);
        IsBlank = line.isEmpty();
        Name = Value = {};
        IsKey = false;
        if (line.startsWith('[')) {
            const qsizetype close = line.indexOf(']');
            Section = TrimmedBytes(line.sliced(1, (close < 0 ? line.size() : close) - 1));
        } else if (const qsizetype equals = line.indexOf('=');
                   !line.startsWith(';') && equals > 0) {
            IsKey = true;
            Name = TrimmedBytes(line.first(equals));
            Value = TrimmedBytes(line.sliced(equals + 1));
        }
        return true;
    }

    /// Byte range of the line, including its line end.
    qsizetype Begin = 0;
    qsizetype End = 0;
    bool IsBlank = false;
    bool IsKey = false;
    /// Absent above the first section.
    std::optional<QByteArrayView> Section;
    QByteArrayView Name;
    QByteArrayView Value;

private:
    QByteArrayView m_bytes;
    qsizetype m_next = 0;
};

QByteArrayView WithoutQuotes(QByteArrayView value)
{
    const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                        (value.front() == '"' || value.front() == '\'');
    return quoted ? value.sliced(1, value.size() - 2) : value;
}

/// @return the bytes of the file, an empty array if the file does not exist, nothing if it cannot
/// be read
std::optional<QByteArray> FileBytes(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return file.exists() ? std::nullopt : std::optional<QByteArray>(QByteArray());
    QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return std::nullopt;
    return bytes;
}

bool TakeLock(QLockFile& lock)
{
    // QLockFile doubles its pauses during one long wait and would lose to busier sessions, so the
    // wait is made of short attempts.
    const QDeadlineTimer patience(lockPatienceMs);
    while (!lock.tryLock(lockSliceMs)) {
        if (lock.error() != QLockFile::LockFailedError || patience.hasExpired())
            return false;
    }
    return true;
}

/// @return the file's bytes with the line of the key changed or added; all other bytes are
/// unchanged
QByteArray WithKey(const QByteArray& bytes, const QString& section, const QString& key,
                   const QString& value)
{
    const auto keyLine = [&value](const QByteArray& name) {
        return QByteArray(name + '=' + ToCodePage(value) + lineEnd.toByteArray());
    };

    std::optional<qsizetype> endOfSection;
    bool firstOfName = true;
    LineWalk walk(bytes);
    while (walk.Next()) {
        if (!walk.Section || !SameName(*walk.Section, section)) {
            firstOfName = firstOfName && !endOfSection;
            continue;
        }
        if (walk.IsKey && SameName(walk.Name, key)) {
            return bytes.first(walk.Begin) + keyLine(walk.Name.toByteArray()) +
                   bytes.sliced(walk.End);
        }
        if (firstOfName && !walk.IsBlank)
            endOfSection = walk.End;
    }

    const qsizetype place = endOfSection.value_or(bytes.size());
    QByteArray added;
    if (place > 0 && bytes[place - 1] != '\n')
        added += lineEnd.toByteArray();
    if (!endOfSection)
        added += '[' + ToCodePage(section) + ']' + lineEnd.toByteArray();
    added += keyLine(ToCodePage(key));
    return bytes.first(place) + added + bytes.sliced(place);
}

} // namespace

std::optional<QString> FindProfileValue(const QString& path, const QString& section,
                                        const QString& key)
{
    const QByteArray bytes = FileBytes(path).value_or(QByteArray());
    LineWalk walk(bytes);
    while (walk.Next()) {
        if (walk.IsKey && SameName(walk.Name, key) && walk.Section &&
            SameName(*walk.Section, section))
            return FromCodePage(WithoutQuotes(walk.Value)).left(ProfileValueLimit);
    }
    return std::nullopt;
}

QString ReadProfileValue(const QString& path, const QString& section, const QString& key,
                         const QString& absent)
{
    return FindProfileValue(path, section, key).value_or(absent);
}

QStringList ProfileSections(const QString& path)
{
    const QByteArray bytes = FileBytes(path).value_or(QByteArray());
    QStringList names;
    LineWalk walk(bytes);
    while (walk.Next()) {
        if (!walk.Section)
            continue;
        const QString name = FromCodePage(*walk.Section);
        if (names.isEmpty() || names.constLast() != name)
            names.append(name);
    }
    names.removeDuplicates();
    return names;
}

bool WriteProfileValue(const QString& path, const QString& section, const QString& key,
                       const QString& value)
{
    QLockFile lock(path + QStringLiteral(".lock"));
    if (!TakeLock(lock))
        return false;
    const std::optional<QByteArray> before = FileBytes(path);
    if (!before)
        return false;
    const QByteArray after = WithKey(*before, section, key, value);
    if (after == *before)
        return true;
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(after) == after.size() && file.commit();
}

} // namespace vantrel
