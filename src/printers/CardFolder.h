#pragma once

#include <QString>

namespace vantrel {

class UnnamedFile;

/// The numbered card files of one folder, from `card-000001.pdf` on after the highest number in it.
/// Several printers may share the folder.
class CardFolder
{
public:
    explicit CardFolder(QString path) : m_path(std::move(path)) {}

    const QString& Path() const { return m_path; }
    /// The path of a file of the folder.
    QString PathOf(const QString& fileName) const { return m_path + QLatin1Char('/') + fileName; }
    /// Gives a finished file of this folder the next free number; it never replaces another one.
    /// Fails with `PrinterError`.
    /// @return the file's name without the folder
    QString Put(UnnamedFile& file);
    /// Gives a finished file this number. Fails with `PrinterError` also if the number is taken.
    /// @return the file's name without the folder
    QString PutAs(qint64 number, UnnamedFile& file) const;
    /// The highest number of a card in the folder now; 0 if there is none.
    qint64 HighestNumber() const;
    /// The name of the file with this number, without the folder.
    static QString FileNameOf(qint64 number);

private:
    QString m_path;
    /// The highest number seen in the folder; -1 before the folder was read.
    qint64 m_lastNumber = -1;
};

} // namespace vantrel
