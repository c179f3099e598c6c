#include "console/Gate.h"

namespace vantrel::console {

namespace {

constexpr QByteArrayView Bearer{"Bearer "};

/// The port that the client has asked, if it is not the usual one of the protocol.
QByteArray PortAsked(const Request& request)
{
    const qsizetype colon = request.Host.lastIndexOf(':');
    bool isPort = false;
    const ushort port = request.Host.mid(colon + 1).toUShort(&isPort);
    return colon >= 0 && isPort ? QByteArray::number(port) : QByteArray();
}

/// Browsers take the name of a cookie that begins with "__Host-" only over TLS and for the whole
/// host. The consoles of a machine share its cookies, so each has a name of its own.
QByteArray CookieName(const Request& request)
{
    const QByteArray port = PortAsked(request);
    return (request.IsSecure ? "__Host-vantrel" : "vantrel") + (port.isEmpty() ? port : '-' + port);
}

QByteArray CookieHeader(const Request& request, const QByteArray& value)
{
    return CookieName(request) + '=' + value + "; Path=/; HttpOnly; SameSite=Strict" +
           (request.IsSecure ? "; Secure" : "") + (value.isEmpty() ? "; Max-Age=0" : "");
}

QByteArray LoginIn(const Request& request)
{
    return CookieIn(request.Cookie, CookieName(request));
}

Answer Unauthorized(const QString& reason)
{
    Answer refusal = Refusal(401, reason);
    refusal.Headers.emplace_back("WWW-Authenticate", "Bearer realm=\"Vantrel\"");
    return refusal;
}

Answer Forbidden()
{
    return Refusal(403, QStringLiteral("The request does not come from the console's own page."));
}

bool IsBearer(const QByteArray& authorization)
{
    return authorization.first(std::min(authorization.size(), Bearer.size()))
               .compare(Bearer, Qt::CaseInsensitive) == 0;
}

} // namespace

Answer Gate::RefuseToken()
{
    const auto delay = m_guard.Fail();
    if (!delay) {
        Answer refusal = Refusal(429, QStringLiteral("Too many wrong tokens."));
        refusal.Headers.emplace_back("Retry-After", "10");
        return refusal;
    }
    Answer refusal = Unauthorized(QStringLiteral("This is not the token."));
    refusal.Delay = *delay;
    return refusal;
}

void Gate::Sent(const Answer& refusal)
{
    if (refusal.Delay.count() > 0)
        m_guard.Sent();
}

bool Gate::ShowsToken(const Request& request)
{
    return IsBearer(request.Authorization) &&
           m_tokens.IsToken(request.Authorization.mid(Bearer.size()).trimmed());
}

bool Gate::LetsIn(const Request& request)
{
    if (request.Authorization.isEmpty())
        return !RefusesLogin(request, Need::Token);
    return ShowsToken(request);
}

std::optional<Answer> Gate::Refuses(const Request& request, Need need)
{
    if (need == Need::Nothing)
        return std::nullopt;
    if (request.Authorization.isEmpty())
        return RefusesLogin(request, need);
    if (!ShowsToken(request))
        return RefuseToken();
    // A program shows the token itself, which no page of others can make a browser do.
    return std::nullopt;
}

std::optional<Answer> Gate::RefusesLogin(const Request& request, Need need)
{
    const QByteArray login = LoginIn(request);
    const auto forgeryToken = login.isEmpty() ? std::nullopt : m_tokens.ForgeryTokenOf(login);
    if (!forgeryToken)
        return Unauthorized(QStringLiteral("Log in first."));
    if (need == Need::Change &&
        (!request.IsFromOwnPage() || !IsSameSecret(request.ForgeryToken, *forgeryToken)))
        return Forbidden();
    return std::nullopt;
}

Answer Gate::LogIn(const Request& request)
{
    if (!request.IsFromOwnPage() || !request.HasJson())
        return Forbidden();
    const auto body = ReadObject(request.Body);
    if (!body || !body->value(u"token").isString())
        return Refusal(400, QStringLiteral("The token is missing."));
    if (!m_tokens.IsToken(body->value(u"token").toString().trimmed().toUtf8()))
        return RefuseToken();
    Answer answer = EmptyAnswer(204);
    answer.Headers.emplace_back("Set-Cookie", CookieHeader(request, m_tokens.Open()));
    return answer;
}

Answer Gate::LogOut(const Request& request)
{
    if (!request.IsFromOwnPage())
        return Forbidden();
    m_tokens.Close(LoginIn(request));
    Answer answer = EmptyAnswer(204);
    answer.Headers.emplace_back("Set-Cookie", CookieHeader(request, {}));
    return answer;
}

Answer Gate::ShowLogin(const Request& request)
{
    const auto forgeryToken = m_tokens.ForgeryTokenOf(LoginIn(request));
    return JsonAnswer(
        "{\"forgery_token\": " + (forgeryToken ? '"' + *forgeryToken + '"' : QByteArray("null")) +
        ", \"console\": \"" + m_run + "\"}\n");
}

} // namespace vantrel::console
