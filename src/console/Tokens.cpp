#include "console/Tokens.h"
#include "base/Failure.h"
#include "base/SecretKey.h"
#include "base/Skip.h"
#include <QCryptographicHash>
#include <QFileInfo>
#include <QRandomGenerator>
#include <algorithm>
#include <array>

namespace vantrel::console {

namespace {

constexpr std::size_t MostLogins = 100;
constexpr std::chrono::hours LongestRest{12};

QByteArray HashOf(QByteArrayView secret)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(secret);
    return hash.result();
}

void RefuseReadable(const QString& path)
{
    constexpr auto others =
        QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    if (QFileInfo(path).permissions() & others)
        throw Failure(FailureNumber::PathNotFound,
                      QStringLiteral("%1 may be read by others than its owner. Remove it, and the "
                                     "console makes another one.")
                          .arg(path));
}

} // namespace

QByteArray NewSecret()
{
    std::array<quint32, 8> words{};
    QRandomGenerator::system()->generate(words.begin(), words.end());
    return QByteArray(reinterpret_cast<const char*>(words.data()), sizeof words).toHex();
}

bool IsSameSecret(QByteArrayView left, QByteArrayView right)
{
    const QByteArray one = HashOf(left);
    const QByteArray other = HashOf(right);
    int differs = 0;
    for (qsizetype i = 0; i < one.size(); ++i)
        differs |= one[i] ^ other[i];
    return differs == 0;
}

Tokens::Tokens(QString path, std::function<Time()> now)
    : m_path(std::move(path)), m_now(std::move(now))
{
    Load();
}

void Tokens::Load()
{
    m_hash.clear();
    m_logins.clear();
    QByteArray token;
    // Somebody may replace the file while it is read, and the first reading makes it.
    do {
        m_stamp = StampOfFile(m_path);
        token = SecretKeyOf(m_path);
    } while (StampOfFile(m_path) != m_stamp);
    RefuseReadable(m_path);
    m_hash = HashOf(token);
}

void Tokens::Follow()
{
    if (!m_hash.isEmpty() && StampOfFile(m_path) == m_stamp)
        return;
    Skip("token", [&] { Load(); });
}

bool Tokens::IsToken(QByteArrayView token)
{
    Follow();
    return !m_hash.isEmpty() && IsSameSecret(HashOf(token), m_hash);
}

QByteArray Tokens::Open()
{
    if (m_logins.size() >= MostLogins)
        m_logins.erase(std::min_element(
            m_logins.begin(), m_logins.end(),
            [](const Login& one, const Login& other) { return one.Used < other.Used; }));
    QByteArray login = NewSecret();
    m_logins.push_back({HashOf(login), NewSecret(), m_now()});
    return login;
}

std::vector<Tokens::Login>::iterator Tokens::Find(QByteArrayView login)
{
    const QByteArray hash = HashOf(login);
    return std::find_if(m_logins.begin(), m_logins.end(),
                        [&](const Login& one) { return one.Hash == hash; });
}

std::optional<QByteArray> Tokens::ForgeryTokenOf(QByteArrayView login)
{
    Follow();
    const auto found = Find(login);
    if (found == m_logins.end())
        return std::nullopt;
    if (m_now() - found->Used > LongestRest) {
        m_logins.erase(found);
        return std::nullopt;
    }
    found->Used = m_now();
    return found->ForgeryToken;
}

void Tokens::Close(QByteArrayView login)
{
    if (const auto found = Find(login); found != m_logins.end())
        m_logins.erase(found);
}

} // namespace vantrel::console
