#include "printers/CardFolder.h"
#include "base/Failure.h"
#include "base/UnnamedFile.h"
#include <QDirIterator>
#include <QLatin1StringView>
#include <algorithm>

namespace vantrel {

namespace {

constexpr QLatin1StringView FileBeginning{"card-"};
constexpr QLatin1StringView FileEnding{".pdf"};
constexpr int FewestDigits = 6;
/// Files with higher numbers are ignored: no station wrote them, and counting on from them could
/// run out of numbers.
constexpr qint64 HighestThatCounts = 999'999'999'999;

/// @return the number in a card file's name, 0 for any other name or number
qint64 NumberOf(const QString& fileName)
{
    if (!fileName.startsWith(FileBeginning) || !fileName.endsWith(FileEnding))
        return 0;
    const QString digits = fileName.sliced(
        FileBeginning.size(), fileName.size() - FileBeginning.size() - FileEnding.size());
    const qint64 number = digits.toLongLong();
    return number <= HighestThatCounts && CardFolder::FileNameOf(number) == fileName ? number : 0;
}

} // namespace

QString CardFolder::FileNameOf(qint64 number)
{
    return FileBeginning + QStringLiteral("%1").arg(number, FewestDigits, 10, QLatin1Char('0')) +
           FileEnding;
}

qint64 CardFolder::HighestNumber() const
{
    qint64 highest = 0;
    for (QDirIterator files(m_path, QDir::Files | QDir::Hidden | QDir::System); files.hasNext();) {
        files.next();
        highest = std::max(highest, NumberOf(files.fileName()));
    }
    return highest;
}

QString CardFolder::Put(UnnamedFile& file)
{
    if (m_lastNumber < 0)
        m_lastNumber = HighestNumber();
    qint64 number = m_lastNumber + 1;
    while (!file.PutInPlace(PathOf(FileNameOf(number))))
        ++number;
    m_lastNumber = number;
    return FileNameOf(number);
}

QString CardFolder::PutAs(qint64 number, UnnamedFile& file) const
{
    QString name = FileNameOf(number);
    if (!file.PutInPlace(PathOf(name)))
        throw Failure(FailureNumber::PrinterError,
                      QStringLiteral("Printer error: there is a file %1 already").arg(name));
    return name;
}

} // namespace vantrel
