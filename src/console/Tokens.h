#pragma once

#include "base/FileStamp.h"
#include <QByteArray>
#include <QString>
#include <chrono>
#include <functional>
#include <optional>
#include <vector>

namespace vantrel::console {

/// Who may use the console: whoever knows the token in a file that only its owner can read, and
/// the browsers that have shown it. When the file is replaced, or is removed and made anew, the
/// token before and all logins are worth nothing at once.
class Tokens
{
public:
    using Time = std::chrono::steady_clock::time_point;

    /// Makes the file if it is missing. Fails with `PathNotFound` if it can neither be read nor
    /// made, holds no token, or others than its owner may read it.
    /// @param now  the clock, for tests
    explicit Tokens(QString path, std::function<Time()> now = std::chrono::steady_clock::now);

    /// Whether this is the token. Takes equally long for every wrong one. Never fails: while the
    /// file is of no use, nothing is the token.
    bool IsToken(QByteArrayView token);

    /// A new login. @return its secret name
    QByteArray Open();
    /// What changes must bring along with a login; nothing if there is no such login. A login ends
    /// when it is not used for twelve hours.
    std::optional<QByteArray> ForgeryTokenOf(QByteArrayView login);
    void Close(QByteArrayView login);

private:
    struct Login
    {
        /// Of its secret name.
        QByteArray Hash;
        QByteArray ForgeryToken;
        Time Used;
    };

    void Load();
    void Follow();
    std::vector<Login>::iterator Find(QByteArrayView login);

    QString m_path;
    std::function<Time()> m_now;
    FileStamp m_stamp;
    /// Of the token; empty while there is none.
    QByteArray m_hash;
    std::vector<Login> m_logins;
};

/// A new random secret of 256 bits, in hexadecimal digits.
QByteArray NewSecret();

/// Whether two secrets are equal, without telling by the time it takes how far they are.
bool IsSameSecret(QByteArrayView left, QByteArrayView right);

} // namespace vantrel::console
