#include "base/Profile.h"
#include "FuzzInput.h"
#include <QFile>
#include <QTemporaryDir>

// For a settings file of any bytes: reading never fails, a written value is read back, and all
// other keys keep their values.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace vantrel;
    static const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("Vantrel 6.ini"));
    fuzz::Input input(data, size);
    const QString section = input.Line();
    const QString key = input.Line();
    {
        QFile file(path);
        fuzz::Require(file.open(QIODevice::WriteOnly), "the file can be written");
        file.write(input.Rest());
    }
    const auto before = FindProfileValue(path, section, key);
    fuzz::Require(!before || before->size() <= ProfileValueLimit, "a value is cut");
    const QString other = QStringLiteral("Session 1");
    const QString port = ReadProfileValue(path, other, QStringLiteral("Port"), QString());

    const QString written = QStringLiteral("written 7");
    fuzz::Require(
        WriteProfileValue(path, QStringLiteral("Session 250"), QStringLiteral("Mark"), written),
        "a key can be written");
    fuzz::Require(ReadProfileValue(path, QStringLiteral("Session 250"), QStringLiteral("Mark"),
                                   QString()) == written,
                  "what was written comes back");
    fuzz::Require(ReadProfileValue(path, other, QStringLiteral("Port"), QString()) == port,
                  "another key keeps its value");
    return 0;
}
