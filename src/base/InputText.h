#pragma once

#include <QByteArray>
#include <QString>

namespace vantrel {

/// @file The characters of what hosts and serial ports send. A byte that is no character of its
/// encoding is kept as a lone low surrogate U+DC80 to U+DCFF, which no valid text contains, so that
/// the bytes of a record can be given back exactly as they came.

/// How the bytes that hosts send are read as characters.
enum class InputEncoding { CodePage1252, Utf8 };

/// Converts the bytes of one connection, or of one opening of a serial port, which may be split at
/// any place. Never fails. Takes linear time.
class InputDecoder
{
public:
    explicit InputDecoder(InputEncoding encoding = InputEncoding::CodePage1252)
        : m_encoding(encoding)
    {}

    /// @return the characters that these bytes complete. A character cut off at the end of the
    /// bytes is kept until its rest arrives. A byte order mark at the very start is dropped
    QString Decode(QByteArrayView bytes);
    /// Whether a byte has come that is no UTF-8. Each decoder tells so once.
    bool TakeStrayNotice();

private:
    /// The character that begins at this byte. @return the number of its bytes, or 0 if it is not
    /// yet complete
    qsizetype DecodeOne(QByteArrayView bytes, char32_t& character);

    InputEncoding m_encoding;
    /// The beginning of a character whose rest has not arrived.
    QByteArray m_held;
    bool m_atStart = true;
    bool m_hasStray = false;
    bool m_told = false;
};

/// @return the bytes from which a text of this encoding was decoded. Characters that the code page
/// lacks become "?"
QByteArray BytesOfInput(QStringView text, InputEncoding encoding);

/// @return the text as it is shown and printed: bytes that were no characters become U+FFFD. A text
/// without such bytes is returned as it is, without a copy
QString ShownInput(const QString& text);

} // namespace vantrel
