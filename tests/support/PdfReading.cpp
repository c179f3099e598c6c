#include "support/PdfReading.h"
#include <QProcess>
#include <QRegularExpression>
#include <gtest/gtest.h>

namespace vantrel::test {

namespace {

QByteArray BytesOf(const QString& tool, const QStringList& arguments)
{
    QProcess process;
    process.start(tool, arguments);
    EXPECT_TRUE(process.waitForFinished()) << tool.toStdString() << " is needed";
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().constData();
    return process.readAllStandardOutput();
}

QString LineOfInfo(const QString& path, const QString& name)
{
    const QRegularExpression line(QStringLiteral("^%1:\\s+(.*)$").arg(name),
                                  QRegularExpression::MultilineOption);
    return line.match(OutputOf(QStringLiteral("pdfinfo"), {path})).captured(1);
}

QString Unescaped(QString text)
{
    return text.replace(QStringLiteral("&lt;"), QStringLiteral("<"))
        .replace(QStringLiteral("&gt;"), QStringLiteral(">"))
        .replace(QStringLiteral("&quot;"), QStringLiteral("\""))
        .replace(QStringLiteral("&amp;"), QStringLiteral("&"));
}

} // namespace

QString OutputOf(const QString& tool, const QStringList& arguments)
{
    return QString::fromUtf8(BytesOf(tool, arguments));
}

std::vector<PdfWord> WordsOfPdf(const QString& path)
{
    static const QRegularExpression word(QStringLiteral(
        R"re(<word xMin="([^"]*)" yMin="([^"]*)" xMax="([^"]*)" yMax="([^"]*)">(.*)</word>)re"));
    std::vector<PdfWord> words;
    const QString boxes =
        OutputOf(QStringLiteral("pdftotext"), {QStringLiteral("-bbox"), path, QStringLiteral("-")});
    for (auto matches = word.globalMatch(boxes); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        words.push_back({Unescaped(match.captured(5)), match.captured(1).toDouble(),
                         match.captured(2).toDouble(), match.captured(3).toDouble(),
                         match.captured(4).toDouble()});
    }
    return words;
}

PdfWord WordOfPdf(const QString& path, const QString& text)
{
    for (const PdfWord& word : WordsOfPdf(path)) {
        if (word.Text == text)
            return word;
    }
    ADD_FAILURE() << "no word " << text.toStdString() << " on the page";
    return {};
}

QString PageSizeOfPdf(const QString& path)
{
    return LineOfInfo(path, QStringLiteral("Page size")).remove(QStringLiteral(" pts")).trimmed();
}

int PagesOfPdf(const QString& path)
{
    return LineOfInfo(path, QStringLiteral("Pages")).toInt();
}

QImage ImageOfPdf(const QString& path, int pixelsPerPoint)
{
    return DotsOfPdf(path, 72 * pixelsPerPoint);
}

QImage DotsOfPdf(const QString& path, int dotsPerInch)
{
    const QByteArray png =
        BytesOf(QStringLiteral("pdftoppm"),
                {QStringLiteral("-png"), QStringLiteral("-r"), QString::number(dotsPerInch),
                 QStringLiteral("-singlefile"), path});
    QImage image = QImage::fromData(png, "PNG");
    EXPECT_FALSE(image.isNull());
    return image;
}

} // namespace vantrel::test
