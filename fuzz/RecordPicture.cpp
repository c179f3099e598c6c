#include "card/RecordPicture.h"
#include "FuzzInput.h"
#include "base/Failure.h"
#include "base/FileBeneath.h"
#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <algorithm>
#include <sys/stat.h>

// For any name of a picture that a record brings: what is opened is a file within the folder, and
// one call of the system and step by step lead to the same.

namespace {

using namespace vantrel;

/// A folder with files, folders and links, beside which files stand that nobody may read.
class Place
{
public:
    Place()
    {
        QDir top(m_top.path());
        fuzz::Require(top.mkpath(QStringLiteral("in/deep/er")), "folders can be made");
        Write(QStringLiteral("secret.png"));
        Write(QStringLiteral("in/a.png"));
        Write(QStringLiteral("in/deep/b.png"));
        Write(QStringLiteral("in/deep/er/c.png"));
        QFile::link(m_top.filePath(QStringLiteral("secret.png")), Folder() + QStringLiteral("/l"));
        QFile::link(m_top.path(), Folder() + QStringLiteral("/up"));
        QFile::link(QStringLiteral("a.png"), Folder() + QStringLiteral("/deep/m"));
        struct stat status = {};
        for (const char* name : {"in/a.png", "in/deep/b.png", "in/deep/er/c.png"}) {
            stat(m_top.filePath(QLatin1StringView(name)).toUtf8().constData(), &status);
            m_inside.push_back(status.st_ino);
        }
    }
    QString Folder() const { return m_top.filePath(QStringLiteral("in")); }
    /// The number of the file that a name leads to; 0 if it leads to none.
    ino_t Opened(const QString& name, FileBeneath::Way way) const
    {
        try {
            const FileBeneath file(Folder(), name, way);
            struct stat status = {};
            fuzz::Require(fstat(file.Descriptor(), &status) == 0, "an open file has a number");
            fuzz::Require(std::find(m_inside.begin(), m_inside.end(), status.st_ino) !=
                              m_inside.end(),
                          "what is opened is in the folder");
            return status.st_ino;
        } catch (const Failure& failure) {
            fuzz::Require(!failure.Text().contains(m_top.path()),
                          "a reason does not tell the folder");
            return 0;
        }
    }

private:
    void Write(const QString& name) const
    {
        QImage image(2, 2, QImage::Format_RGB32);
        image.fill(QColor(60, 90, 150));
        fuzz::Require(image.save(m_top.filePath(name)), "a picture can be written");
    }

    QTemporaryDir m_top;
    std::vector<ino_t> m_inside;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const Place place;
    fuzz::Input input(data, size);
    const QString path = QString::fromUtf8(input.Line().toUtf8());
    const QStringList columns = input.Line().split(u',', Qt::SkipEmptyParts);
    FieldValues values;
    while (!input.IsEmpty())
        values.Add(input.Line());

    const PictureSource source{.Folder = place.Folder(), .Columns = columns};
    fuzz::Require(source.IsNamedByRecord(path) == HasPlaceholder(source.NameIn(path), columns),
                  "a path with a placeholder is filled");
    QString filled;
    try {
        filled = FilledPath(source.NameIn(path), values, columns);
    } catch (const Failure& failure) {
        fuzz::Require(failure.Number() == FailureNumber::SubscriptOutOfRange,
                      "a value that the record lacks is the reason");
        return 0;
    }
    const ino_t atOnce = place.Opened(filled, FileBeneath::Way::AtOnce);
    fuzz::Require(atOnce == place.Opened(filled, FileBeneath::Way::StepByStep),
                  "both ways of opening lead to the same file");
    bool isPicture = false;
    try {
        isPicture = SafePictureIn(place.Folder(), filled).HasHandle();
    } catch (const Failure&) {
        isPicture = false;
    }
    fuzz::Require(isPicture == (atOnce != 0), "a file of the folder is a picture");
    return 0;
}
