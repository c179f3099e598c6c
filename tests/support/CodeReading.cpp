#include "support/CodeReading.h"
#include <QProcess>
#include <QProcessEnvironment>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace vantrel::test {

namespace {

/// What a reader writes of a picture. Readers end with an error where they find nothing.
QString ToldBy(const QString& tool, const QStringList& options, const QImage& picture)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("code.png"));
    EXPECT_TRUE(picture.save(path));
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("NODE_PATH"), QStringLiteral(VANTREL_NODE_MODULES));
    process.setProcessEnvironment(environment);
    process.start(tool, options + QStringList(path));
    EXPECT_TRUE(process.waitForFinished()) << tool.toStdString() << " is needed";
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    return QString::fromUtf8(process.readAllStandardOutput());
}

} // namespace

QStringList CodesByZxing(const QImage& picture)
{
    static const QRegularExpression text(QStringLiteral("^Text:\\s+\"(.*)\"$"),
                                         QRegularExpression::MultilineOption);
    QStringList texts;
    for (auto found = text.globalMatch(ToldBy(QStringLiteral("ZXingReader"), {}, picture));
         found.hasNext();)
        texts.append(found.next().captured(1));
    return texts;
}

QStringList CodesByZbar(const QImage& picture)
{
    return ToldBy(QStringLiteral("zbarimg"), {QStringLiteral("-q"), QStringLiteral("--raw")},
                  picture)
        .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

QStringList CodesByDmtx(const QImage& picture)
{
    QString told =
        ToldBy(QStringLiteral("dmtxread"),
               {QStringLiteral("-N1"), QStringLiteral("-m5000"), QStringLiteral("-n")}, picture);
    // The number of the character set, which it takes for a character of the text.
    constexpr char16_t utf8 = 26;
    if (told.startsWith(QChar(utf8)))
        told.remove(0, 1);
    return told.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

QStringList CodesByScript(const QImage& picture)
{
    return ToldBy(QStringLiteral("node"), {QStringLiteral(VANTREL_NODE_SCRIPTS "/read-codes.cjs")},
                  picture)
        .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

} // namespace vantrel::test
