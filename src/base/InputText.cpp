#include "base/InputText.h"
#include "base/CodePage.h"
#include <algorithm>
#include <utility>

namespace vantrel {

namespace {

constexpr char32_t ByteOrderMark = 0xFEFF;
constexpr char16_t FirstStray = 0xDC80;
constexpr char16_t LastStray = 0xDCFF;
/// A stray byte is this character plus the byte.
constexpr char16_t StrayBase = 0xDC00;

/// The well-formed beginnings of characters of several bytes: the range of the first byte, the
/// range of the second, and the number of bytes. Overlong forms, surrogates and codes above 10FFFF
/// are in none.
struct Form
{
    unsigned char FirstLow, FirstHigh, SecondLow, SecondHigh;
    int Length;
};
constexpr Form Forms[] = {
    {0xC2, 0xDF, 0x80, 0xBF, 2}, {0xE0, 0xE0, 0xA0, 0xBF, 3}, {0xE1, 0xEC, 0x80, 0xBF, 3},
    {0xED, 0xED, 0x80, 0x9F, 3}, {0xEE, 0xEF, 0x80, 0xBF, 3}, {0xF0, 0xF0, 0x90, 0xBF, 4},
    {0xF1, 0xF3, 0x80, 0xBF, 4}, {0xF4, 0xF4, 0x80, 0x8F, 4},
};

const Form* FormOf(unsigned char first)
{
    const auto* const form = std::find_if(std::begin(Forms), std::end(Forms), [&](const Form& row) {
        return first >= row.FirstLow && first <= row.FirstHigh;
    });
    return form == std::end(Forms) ? nullptr : form;
}

/// Whether the character at this place is a byte that was none.
bool IsStray(QStringView text, qsizetype at)
{
    const char16_t character = text[at].unicode();
    return character >= FirstStray && character <= LastStray &&
           (at == 0 || !text[at - 1].isHighSurrogate());
}

qsizetype FindStray(QStringView text)
{
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (IsStray(text, at))
            return at;
    }
    return -1;
}

} // namespace

qsizetype InputDecoder::DecodeOne(QByteArrayView bytes, char32_t& character)
{
    const auto byteAt = [&](qsizetype at) { return static_cast<unsigned char>(bytes[at]); };
    const unsigned char first = byteAt(0);
    character = first;
    if (first < 0x80)
        return 1;

    constexpr unsigned valueBits = 6;
    constexpr unsigned valueMask = 0x3F;
    if (const Form* form = FormOf(first)) {
        char32_t value = first & (0xFFU >> (form->Length + 1));
        qsizetype at = 1;
        for (; at < form->Length && at < bytes.size(); ++at) {
            const unsigned char low = at == 1 ? form->SecondLow : 0x80;
            const unsigned char high = at == 1 ? form->SecondHigh : 0xBF;
            if (byteAt(at) < low || byteAt(at) > high)
                break;
            value = (value << valueBits) | (byteAt(at) & valueMask);
        }
        if (at == form->Length) {
            character = value;
            return at;
        }
        if (at == bytes.size())
            return 0;
    }
    m_hasStray = true;
    character = StrayBase + first;
    return 1;
}

QString InputDecoder::Decode(QByteArrayView bytes)
{
    if (m_encoding == InputEncoding::CodePage1252)
        return FromCodePage(bytes);

    QByteArray joined;
    if (!m_held.isEmpty()) {
        joined = std::exchange(m_held, {});
        joined.append(bytes);
        bytes = joined;
    }
    QString text(bytes.size(), Qt::Uninitialized);
    QChar* out = text.data();
    for (qsizetype at = 0; at < bytes.size();) {
        char32_t character = 0;
        const qsizetype length = DecodeOne(bytes.sliced(at), character);
        if (length == 0) {
            m_held = bytes.sliced(at).toByteArray();
            break;
        }
        at += length;
        if (std::exchange(m_atStart, false) && character == ByteOrderMark)
            continue;
        if (QChar::requiresSurrogates(character)) {
            *out++ = QChar(QChar::highSurrogate(character));
            *out++ = QChar(QChar::lowSurrogate(character));
        } else {
            *out++ = QChar(static_cast<char16_t>(character));
        }
    }
    text.truncate(out - text.constData());
    return text;
}

bool InputDecoder::TakeStrayNotice()
{
    return m_hasStray && !std::exchange(m_told, true);
}

QByteArray BytesOfInput(QStringView text, InputEncoding encoding)
{
    if (encoding == InputEncoding::CodePage1252)
        return ToCodePage(text);
    QByteArray bytes;
    bytes.reserve(text.size());
    while (!text.isEmpty()) {
        qsizetype stray = FindStray(text);
        if (stray < 0)
            stray = text.size();
        bytes += text.first(stray).toUtf8();
        text = text.sliced(stray);
        for (; !text.isEmpty() && IsStray(text, 0); text = text.sliced(1))
            bytes += static_cast<char>(text[0].unicode() - StrayBase);
    }
    return bytes;
}

QString ShownInput(const QString& text)
{
    const qsizetype first = FindStray(text);
    if (first < 0)
        return text;
    QString shown = text;
    // Replaced from the end, so that the test sees the characters before it as they came.
    for (qsizetype at = shown.size() - 1; at >= first; --at) {
        if (IsStray(shown, at))
            shown[at] = QChar(QChar::ReplacementCharacter);
    }
    return shown;
}

} // namespace vantrel
