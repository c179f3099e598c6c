#include "drawing/WholeTextPicture.h"

namespace vantrel {

namespace {

/// Longer sides are considered invalid.
constexpr qint64 LongestSide = qint64{1} << 26;

bool IsBlank(char character)
{
    return character == ' ' || (character >= '\t' && character <= '\r');
}

bool IsDigit(char character)
{
    return character >= '0' && character <= '9';
}

/// Reads the numbers of a PNM text file one after the other.
class NumberReader
{
public:
    NumberReader(QByteArrayView file, qsizetype at) : m_file(file), m_at(at) {}

    /// Reads the next number and the one blank after it.
    /// @return -1 if there is no number, if the file ends with it, or if it exceeds `LongestSide`
    qint64 Next()
    {
        SkipBlanks();
        qint64 number = -1;
        for (; m_at < m_file.size() && IsDigit(m_file[m_at]); ++m_at) {
            number = qMax<qint64>(number, 0) * 10 + (m_file[m_at] - '0');
            if (number > LongestSide)
                return -1;
        }
        return m_at < m_file.size() && IsBlank(m_file[m_at++]) ? number : -1;
    }

    /// Skips one digit, which is a whole pixel here. @return whether there was one
    bool NextDigit()
    {
        SkipBlanks();
        return m_at < m_file.size() && IsDigit(m_file[m_at++]);
    }

    qsizetype At() const { return m_at; }

private:
    void SkipBlanks()
    {
        for (; m_at < m_file.size(); ++m_at) {
            if (m_file[m_at] == '#') {
                const qsizetype lineEnd = m_file.indexOf('\n', m_at);
                m_at = lineEnd < 0 ? m_file.size() : lineEnd;
            }
            if (m_at == m_file.size() || !IsBlank(m_file[m_at]))
                return;
        }
    }

    QByteArrayView m_file;
    qsizetype m_at;
};

} // namespace

bool IsWholePnm(QByteArrayView file)
{
    const char kind = file[1];
    const bool isBits = kind == '1' || kind == '4';
    const bool isColour = kind == '3' || kind == '6';
    NumberReader reader(file, 2);
    const qint64 width = reader.Next();
    const qint64 height = reader.Next();
    const qint64 highest = isBits ? 1 : reader.Next();
    if (width < 0 || height < 0 || highest < 0)
        return false;
    const qint64 samples = width * height * (isColour ? 3 : 1);
    constexpr qint64 highestOfOneByte = 255;
    switch (kind) {
    case '4':
        return (width + 7) / 8 * height <= file.size() - reader.At();
    case '5':
    case '6':
        return samples * (highest > highestOfOneByte ? 2 : 1) <= file.size() - reader.At();
    default:
        break;
    }
    for (qint64 sample = 0; sample < samples; ++sample) {
        if (!(isBits ? reader.NextDigit() : reader.Next() >= 0))
            return false;
    }
    return true;
}

bool IsWholeCText(QByteArrayView file)
{
    bool isInText = false;
    for (qsizetype at = 0; at + 1 < file.size(); ++at) {
        if (file[at] == '"')
            isInText = !isInText;
        else if (!isInText && file[at] == '}')
            return file[at + 1] == ';';
    }
    return false;
}

} // namespace vantrel
