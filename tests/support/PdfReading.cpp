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

QStringList TextsOfPages(const QString& path)
{
    QStringList texts =
        OutputOf(QStringLiteral("pdftotext"), {path, QStringLiteral("-")}).split(QLatin1Char('\f'));
    texts.removeLast(); // each page ends with a form feed
    for (QString& text : texts)
        text = text.simplified();
    return texts;
}

QStringList SizesOfPages(const QString& path)
{
    static const QRegularExpression line(QStringLiteral("^Page +\\d+ size: +(.*) pts"),
                                         QRegularExpression::MultilineOption);
    QStringList sizes;
    const QString info =
        OutputOf(QStringLiteral("pdfinfo"), {QStringLiteral("-f"), QStringLiteral("1"),
                                             QStringLiteral("-l"), QStringLiteral("-1"), path});
    for (auto matches = line.globalMatch(info); matches.hasNext();)
        sizes.append(matches.next().captured(1));
    return sizes;
}

void ExpectValidPdf(const QString& path)
{
    const auto expectSilence = [&path](const QString& tool, const QStringList& arguments,
                                       QProcess::ProcessChannel channel) {
        QProcess process;
        process.start(tool, arguments);
        EXPECT_TRUE(process.waitForFinished(120'000)) << tool.toStdString() << " is needed";
        EXPECT_EQ(process.exitCode(), 0);
        process.setReadChannel(channel);
        QByteArray complaints = process.readAll();
        // How this MuPDF was built, and nothing about the file.
        complaints.replace("warning: ICC support is not available\n", "");
        EXPECT_EQ(complaints.toStdString(), "")
            << tool.toStdString() << " about " << path.toStdString();
    };
    expectSilence(QStringLiteral("qpdf"), {QStringLiteral("--check"), path},
                  QProcess::StandardError);
    expectSilence(QStringLiteral("mutool"),
                  {QStringLiteral("draw"), QStringLiteral("-q"), QStringLiteral("-F"),
                   QStringLiteral("bbox"), QStringLiteral("-o"), QStringLiteral("/dev/null"), path},
                  QProcess::StandardError);
    expectSilence(QStringLiteral("gs"),
                  {QStringLiteral("-q"), QStringLiteral("-dBATCH"), QStringLiteral("-dNOPAUSE"),
                   QStringLiteral("-dPDFSTOPONERROR"), QStringLiteral("-dPDFSTOPONWARNING"),
                   QStringLiteral("-sDEVICE=nullpage"), path},
                  QProcess::StandardOutput);
    expectSilence(QStringLiteral("pdftotext"), {path, QStringLiteral("/dev/null")},
                  QProcess::StandardError);
}

QStringList PictureObjectsOfPdf(const QString& path)
{
    const QString listed =
        OutputOf(QStringLiteral("pdfimages"), {QStringLiteral("-list"), path}).trimmed();
    QStringList objects;
    const QStringList lines = listed.split(QLatin1Char('\n')).sliced(2);
    for (const QString& line : lines) {
        constexpr qsizetype kindAt = 2;
        constexpr qsizetype objectAt = 10;
        const QStringList columns = line.simplified().split(QLatin1Char(' '));
        if (columns.value(kindAt) == QLatin1StringView("image"))
            objects.append(columns.value(objectAt));
    }
    return objects;
}

QImage ImageOfPdf(const QString& path, int pixelsPerPoint, int page)
{
    return DotsOfPdf(path, 72 * pixelsPerPoint, page);
}

QImage DotsOfPdf(const QString& path, int dotsPerInch, int page)
{
    const QByteArray png =
        BytesOf(QStringLiteral("pdftoppm"),
                {QStringLiteral("-png"), QStringLiteral("-r"), QString::number(dotsPerInch),
                 QStringLiteral("-f"), QString::number(page), QStringLiteral("-singlefile"), path});
    QImage image = QImage::fromData(png, "PNG");
    EXPECT_FALSE(image.isNull());
    return image;
}

} // namespace vantrel::test
