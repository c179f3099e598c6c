#include "base/SecretKey.h"
#include "base/Failure.h"
#include "base/Skip.h"
#include <QFile>
#include <QRandomGenerator>
#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <optional>
#include <unistd.h>

namespace vantrel {

namespace {

constexpr qsizetype Digits = 64;

std::optional<QByteArray> ReadKey(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return file.read(Digits + 2).trimmed();
}

QByteArray NewKey()
{
    std::array<quint32, Digits / 8> words{};
    QRandomGenerator::system()->generate(words.begin(), words.end());
    return QByteArray(reinterpret_cast<const char*>(words.data()), sizeof words).toHex();
}

/// Writes the key under a name of its own first, so that nobody reads half of it.
void MakeKey(const QString& path)
{
    QByteArray name = QFile::encodeName(path) + ".XXXXXX";
    const int descriptor = ::mkostemp(name.data(), O_CLOEXEC);
    if (descriptor < 0)
        return;
    const QByteArray key = NewKey() + '\n';
    const bool written =
        ::write(descriptor, key.constData(), static_cast<std::size_t>(key.size())) == key.size() &&
        ::fsync(descriptor) == 0;
    ::close(descriptor);
    // If another process was faster, its key stays.
    if (written && ::link(name.constData(), QFile::encodeName(path).constData()) != 0)
        LogSkipped("make key", Failure(FailureNumber::PathNotFound, path));
    ::unlink(name.constData());
}

} // namespace

QByteArray SecretKeyOf(const QString& path)
{
    std::optional<QByteArray> key = ReadKey(path);
    if (!key) {
        MakeKey(path);
        key = ReadKey(path);
    }
    if (!key || key->size() != Digits || QByteArray::fromHex(*key).size() != Digits / 2)
        throw Failure(FailureNumber::PathNotFound, QStringLiteral("No usable key in ") + path);
    return *key;
}

} // namespace vantrel
