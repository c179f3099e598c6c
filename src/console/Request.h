#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QMap>
#include <QString>
#include <QStringList>
#include <optional>

namespace vantrel::console {

/// The longest request that is read, in bytes: its first line and its headers.
inline constexpr std::size_t LongestHead = std::size_t{16} * 1024;
/// The longest body that is read, in bytes.
inline constexpr qsizetype LongestBody = qsizetype{256} * 1024;

/// What a request asks for.
struct Target
{
    /// The parts of the path, decoded; empty for "/".
    QStringList Path;
    /// The named values behind the question mark, decoded. Of several with one name the last.
    QMap<QString, QString> Query;
};

/// Reads the target of a request line, such as "/api/v1/records?text=Ada". @return nothing for one
/// that is no absolute path, has an empty part, "." or "..", a slash or a control character within
/// a part, bytes that are no UTF-8, or more than fifty values. Never fails; takes linear time.
std::optional<Target> ReadTarget(QByteArrayView target);

/// The value of a cookie in the header "Cookie"; empty if it is not there. Of several with one name
/// the first.
QByteArray CookieIn(QByteArrayView header, QByteArrayView name);

/// The object in a body of JSON. @return nothing for anything else
std::optional<QJsonObject> ReadObject(const QByteArray& body);

/// One request, complete.
struct Request
{
    QByteArray Method;
    Target To;
    /// Headers, empty where they are missing.
    QByteArray Host;
    QByteArray Origin;
    QByteArray FetchSite;
    QByteArray Authorization;
    QByteArray Cookie;
    QByteArray ForgeryToken;
    QByteArray ContentType;
    QByteArray Body;
    /// Whether it came over TLS.
    bool IsSecure = false;

    /// Whether the page that sent the request, if it was a page, is one of this console.
    bool IsFromOwnPage() const;
    bool HasJson() const;
};

} // namespace vantrel::console
