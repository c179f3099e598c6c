#include "drawing/pdf/PdfSyntax.h"
#include "drawing/pdf/PdfFile.h"
#include "support/Print.h"
#include <QRegularExpression>
#include <gtest/gtest.h>

namespace vantrel::test {

namespace {

QByteArray Spelled(double number)
{
    QByteArray out;
    AppendNumber(out, number);
    return out;
}

} // namespace

TEST(PdfSyntax, NumbersHaveTheDecimalsTheyNeedAndAtMostFour)
{
    const std::vector<std::pair<double, const char*>> numbers{{0, "0"},
                                                              {-0.0, "0"},
                                                              {1, "1"},
                                                              {10, "10"},
                                                              {-3.5, "-3.5"},
                                                              {0.25, "0.25"},
                                                              {153, "153"},
                                                              {1.0 / 3, "0.3333"},
                                                              {0.00004, "0"},
                                                              {-0.00004, "0"},
                                                              {0.00006, "0.0001"},
                                                              {1234567, "1234567"},
                                                              {100, "100"},
                                                              {50000.125, "50000.125"}};
    for (const auto& [number, spelled] : numbers)
        EXPECT_EQ(Spelled(number).toStdString(), spelled) << number;
}

TEST(PdfSyntax, CodesHaveFourDigitsForEachUnit)
{
    QByteArray out;
    AppendHex(out, std::uint16_t{0x0A});
    AppendHex(out, QString::fromUtf8("A€😀"));
    EXPECT_EQ(out.toStdString(), "000A004120ACD83DDE00");
}

TEST(PdfSyntax, CompressedBytesCanBeDecompressed)
{
    const QByteArray bytes(100000, 'x');
    const QByteArray packed = PackBytes(bytes);
    EXPECT_LT(packed.size(), 1000);
    EXPECT_EQ(qUncompress(QByteArray("\0\1\x86\xA0", 4) + packed), bytes);
}

TEST(PdfFile, TheTableHoldsTheOffsetOfEachObject)
{
    QByteArray written;
    PdfFile file([&written](const char* bytes, std::size_t count) {
        written.append(bytes, static_cast<qsizetype>(count));
        return true;
    });
    const int late = file.Reserve();
    const int stream = file.AddStream("/Kind/Test ", "12345");
    file.Write(late, "<<>>");
    EXPECT_TRUE(file.End(late, stream));
    EXPECT_EQ(late, 1);
    EXPECT_EQ(stream, 2);
    for (const int object : {late, stream}) {
        const qsizetype entry = written.indexOf("xref\n0 3\n") + 9 + qsizetype{20} * object;
        const qsizetype begin = written.sliced(entry, 10).toLongLong();
        const QByteArray head = QByteArray::number(object) + " 0 obj\n";
        EXPECT_EQ(written.sliced(begin, head.size()), head);
    }
    const qsizetype told = QRegularExpression(QStringLiteral("startxref\n(\\d+)\n%%EOF\n$"))
                               .match(QString::fromLatin1(written))
                               .captured(1)
                               .toLongLong();
    EXPECT_EQ(written.sliced(told, 5), "xref\n");
    EXPECT_TRUE(written.contains("<</Kind/Test /Length 5>>\nstream\n12345\nendstream"));
}

TEST(PdfFile, ASinkThatFailsIsReportedAtTheEndAndNotCalledAgain)
{
    int asked = 0;
    PdfFile file([&asked](const char*, std::size_t) { return ++asked < 3; });
    file.Add("<<>>");
    file.Add("<<>>");
    EXPECT_FALSE(file.End(1, 2));
    EXPECT_EQ(asked, 3);
}

} // namespace vantrel::test
