#include "base/InputText.h"
#include "base/CodePage.h"
#include "support/Print.h"
#include <QStringList>
#include <gtest/gtest.h>
#include <random>

using namespace vantrel;

namespace {

/// Decodes as UTF-8 what comes in these pieces. Bytes of a character that never becomes complete
/// are not in the text.
QString Decoded(const QList<QByteArray>& pieces)
{
    InputDecoder decoder(InputEncoding::Utf8);
    QString text;
    for (const QByteArray& piece : pieces)
        text += decoder.Decode(piece);
    return text;
}

/// The text of bytes of which none is a character.
QString Stray(const QByteArray& bytes)
{
    QString text;
    for (const char byte : bytes)
        text += QChar(0xDC00 + static_cast<unsigned char>(byte));
    return text;
}

const QString names = QStringLiteral("Zażółć, Ελένη, محمد, 🎫, €");

} // namespace

TEST(InputText, CharactersOfEveryLengthAreWholeWhereverTheirBytesAreSplit)
{
    const QByteArray bytes = names.toUtf8();
    for (qsizetype first = 0; first <= bytes.size(); ++first) {
        for (qsizetype second = first; second <= bytes.size(); ++second) {
            ASSERT_EQ(
                Decoded({bytes.first(first), bytes.mid(first, second - first), bytes.mid(second)}),
                names)
                << first << " " << second;
        }
    }
    QList<QByteArray> single;
    for (const char byte : bytes)
        single.append(QByteArray(1, byte));
    EXPECT_EQ(Decoded(single), names);
}

TEST(InputText, ByteThatIsNoCharacterIsKeptByItself)
{
    const struct
    {
        const char* What;
        QByteArray Bytes;
    } rows[] = {
        {"a byte that only continues", "\x80"},
        {"the bytes that begin nothing", "\xC0\xC1\xF5\xFE\xFF"},
        {"an overlong form of two bytes", "\xC0\xAF"},
        {"an overlong form of three bytes", "\xE0\x9F\xBF"},
        {"an overlong form of four bytes", "\xF0\x8F\xBF\xBF"},
        {"a high surrogate", "\xED\xA0\x80"},
        {"a low surrogate", "\xED\xBF\xBF"},
        {"the code behind 10FFFF", "\xF4\x90\x80\x80"},
        {"a code of five bytes", "\xF8\x88\x80\x80\x80"},
        {"a character of two bytes that breaks off", "\xC3"},
        {"a character of four bytes that breaks off", "\xF0\x9F\x8E"},
    };
    for (const auto& row : rows) {
        const QString text = Decoded({"a" + row.Bytes + "b"});
        EXPECT_EQ(text, QLatin1Char('a') + Stray(row.Bytes) + QLatin1Char('b')) << row.What;
        EXPECT_EQ(BytesOfInput(text, InputEncoding::Utf8), "a" + row.Bytes + "b") << row.What;
        EXPECT_EQ(ShownInput(text),
                  QLatin1Char('a') + QString(row.Bytes.size(), QChar(0xFFFD)) + QLatin1Char('b'))
            << row.What;
    }
}

TEST(InputText, TheFirstAndLastCharacterOfEachLengthAreCharacters)
{
    for (const char32_t code :
         {0x7FU, 0x80U, 0x7FFU, 0x800U, 0xD7FFU, 0xE000U, 0xFFFDU, 0xFFFFU, 0x10000U, 0x10FFFFU}) {
        const QString text = QString::fromUcs4(&code, 1);
        EXPECT_EQ(Decoded({"a" + text.toUtf8()}), QLatin1Char('a') + text)
            << text.toUtf8().toHex().constData();
    }
    EXPECT_EQ(Decoded({QByteArray(1, '\0')}), QString(1, QChar(0)));
}

TEST(InputText, ByteOrderMarkIsDroppedAtTheStartOnly)
{
    EXPECT_EQ(Decoded({"\xEF\xBB\xBF<A>"}), QStringLiteral("<A>"));
    EXPECT_EQ(Decoded({"\xEF", "\xBB", "\xBF", "<A>"}), QStringLiteral("<A>"));
    EXPECT_EQ(Decoded({"<A>\xEF\xBB\xBF"}), QStringLiteral("<A>\uFEFF"));
    EXPECT_EQ(Decoded({"\xEF\xBB\xBF\xEF\xBB\xBF<"}), QStringLiteral("\uFEFF<"));
    EXPECT_EQ(Decoded({"\xEF\xBB<"}), Stray("\xEF\xBB") + QLatin1Char('<'));
}

TEST(InputText, AnyBytesComeBackAsTheyCameAndAreValidTextOnceShown)
{
    std::mt19937 engine(8);
    const auto random = [&](unsigned below) { return static_cast<unsigned>(engine() % below); };
    for (int round = 0; round < 2000; ++round) {
        QByteArray bytes = "a";
        // Mostly bytes above 7F, so that characters, broken ones and strays meet.
        for (unsigned length = random(24); length > 0; --length)
            bytes.append(static_cast<char>(random(4) == 0 ? random(128) : 0xC0 + random(64)));
        for (unsigned places = random(8); places > 0; --places)
            bytes.insert(1 + static_cast<qsizetype>(random(static_cast<unsigned>(bytes.size()))),
                         static_cast<char>(0x80 + random(64)));
        const auto cut = static_cast<qsizetype>(random(static_cast<unsigned>(bytes.size())));
        // The mark completes or breaks whatever stands before it.
        const QString text = Decoded({bytes.first(cut), bytes.mid(cut), ">"});
        ASSERT_EQ(BytesOfInput(text, InputEncoding::Utf8), bytes + '>') << bytes.toHex().data();
        ASSERT_EQ(text, Decoded({bytes + '>'}));
        const QString shown = ShownInput(text);
        ASSERT_TRUE(shown.isValidUtf16()) << bytes.toHex().data();
        ASSERT_EQ(shown.size(), text.size());
        // What is left out between the strays is what another decoder finds there too.
        ASSERT_EQ(shown.contains(QChar(0xFFFD)), QString::fromUtf8(bytes).contains(QChar(0xFFFD)))
            << bytes.toHex().data();
    }
}

TEST(InputText, TextWithoutStrayBytesIsShownWithoutACopy)
{
    EXPECT_EQ(ShownInput(names).constData(), names.constData());
    // The second half of this character is in the range of the stray bytes.
    const QString pair = QStringLiteral("\U000104FF\U00010480");
    EXPECT_EQ(ShownInput(pair), pair);
    EXPECT_EQ(BytesOfInput(pair, InputEncoding::Utf8), pair.toUtf8());
    EXPECT_EQ(ShownInput(pair + Stray("\xFF")), pair + QChar(0xFFFD));
}

TEST(InputText, StrayByteIsToldOncePerDecoder)
{
    InputDecoder decoder(InputEncoding::Utf8);
    decoder.Decode(names.toUtf8());
    EXPECT_FALSE(decoder.TakeStrayNotice());
    decoder.Decode("\xFF");
    EXPECT_TRUE(decoder.TakeStrayNotice());
    decoder.Decode("\xFF");
    EXPECT_FALSE(decoder.TakeStrayNotice());
}

TEST(InputText, EachByteIsACharacterOfTheCodePageUnlessSetOtherwise)
{
    QByteArray all;
    for (int code = 0; code < 256; ++code)
        all.append(static_cast<char>(code));
    InputDecoder decoder;
    const QString text = decoder.Decode(all);
    EXPECT_EQ(text, FromCodePage(all));
    EXPECT_EQ(BytesOfInput(text, InputEncoding::CodePage1252), all);
    EXPECT_FALSE(decoder.TakeStrayNotice());
}
