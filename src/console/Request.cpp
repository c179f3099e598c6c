#include "console/Request.h"
#include <QJsonDocument>
#include <QStringDecoder>

namespace vantrel::console {

namespace {

constexpr qsizetype MostValues = 50;
constexpr char16_t FirstPlainCode = 0x20;
constexpr char16_t DeleteCode = 0x7F;

/// The value of a hexadecimal digit, or -1.
int DigitOf(char digit)
{
    if (digit >= '0' && digit <= '9')
        return digit - '0';
    if (digit >= 'a' && digit <= 'f')
        return digit - 'a' + 10;
    if (digit >= 'A' && digit <= 'F')
        return digit - 'A' + 10;
    return -1;
}

/// The text of a part whose codes "%HH" stand for bytes. @return nothing if it is no such text
std::optional<QString> Decoded(QByteArrayView part, bool plusIsBlank)
{
    QByteArray bytes;
    bytes.reserve(part.size());
    for (qsizetype i = 0; i < part.size(); ++i) {
        if (part[i] == '%') {
            const int high = i + 1 < part.size() ? DigitOf(part[i + 1]) : -1;
            const int low = i + 2 < part.size() ? DigitOf(part[i + 2]) : -1;
            if (high < 0 || low < 0)
                return std::nullopt;
            bytes += static_cast<char>(high * 16 + low);
            i += 2;
        } else {
            bytes += plusIsBlank && part[i] == '+' ? ' ' : part[i];
        }
    }
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder(bytes);
    if (decoder.hasError())
        return std::nullopt;
    for (const QChar character : text) {
        if (character.unicode() < FirstPlainCode || character.unicode() == DeleteCode)
            return std::nullopt;
    }
    return text;
}

/// Calls `take` for each part between the separators until it returns false. @return whether all
/// were taken
template <typename Take>
bool ForEachPart(QByteArrayView text, char separator, Take&& take)
{
    for (;;) {
        const qsizetype end = text.indexOf(separator);
        if (!take(end < 0 ? text : text.first(end)))
            return false;
        if (end < 0)
            return true;
        text = text.sliced(end + 1);
    }
}

bool ReadPath(QByteArrayView path, QStringList& parts)
{
    // The path begins with a slash.
    path = path.sliced(1);
    if (path.isEmpty())
        return true;
    return ForEachPart(path, '/', [&](QByteArrayView part) {
        const auto text = Decoded(part, false);
        if (!text || text->isEmpty() || *text == u"." || *text == u".." || text->contains(u'/') ||
            text->contains(u'\\'))
            return false;
        parts += *text;
        return true;
    });
}

bool ReadQuery(QByteArrayView query, QMap<QString, QString>& values)
{
    qsizetype count = 0;
    return ForEachPart(query, '&', [&](QByteArrayView pair) {
        if (pair.isEmpty())
            return true;
        const qsizetype equals = pair.indexOf('=');
        const auto name = Decoded(equals < 0 ? pair : pair.first(equals), true);
        const auto value = Decoded(equals < 0 ? QByteArrayView() : pair.sliced(equals + 1), true);
        if (!name || !value || ++count > MostValues)
            return false;
        values[*name] = *value;
        return true;
    });
}

} // namespace

std::optional<Target> ReadTarget(QByteArrayView target)
{
    if (!target.startsWith('/'))
        return std::nullopt;
    const qsizetype question = target.indexOf('?');
    Target read;
    if (!ReadPath(question < 0 ? target : target.first(question), read.Path))
        return std::nullopt;
    if (question >= 0 && !ReadQuery(target.sliced(question + 1), read.Query))
        return std::nullopt;
    return read;
}

QByteArray CookieIn(QByteArrayView header, QByteArrayView name)
{
    QByteArray found;
    ForEachPart(header, ';', [&](QByteArrayView pair) {
        pair = pair.trimmed();
        const qsizetype equals = pair.indexOf('=');
        if (equals < 0 || pair.first(equals) != name)
            return true;
        found = pair.sliced(equals + 1).toByteArray();
        return false;
    });
    return found;
}

std::optional<QJsonObject> ReadObject(const QByteArray& body)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(body, &error);
    if (error.error != QJsonParseError::NoError || !document.isObject())
        return std::nullopt;
    return document.object();
}

bool Request::IsFromOwnPage() const
{
    if (!FetchSite.isEmpty() && FetchSite != "same-origin" && FetchSite != "none")
        return false;
    return Origin.isEmpty() || Origin == QByteArray((IsSecure ? "https://" : "http://") + Host);
}

bool Request::HasJson() const
{
    // Parameters may follow, such as the character set.
    return ContentType.split(';').constFirst().trimmed().toLower() == "application/json";
}

} // namespace vantrel::console
