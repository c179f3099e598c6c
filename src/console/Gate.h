#pragma once

#include "console/Answer.h"
#include "console/LoginGuard.h"
#include "console/Request.h"
#include "console/Tokens.h"
#include <optional>

namespace vantrel::console {

/// What a path wants of the one who asks.
enum class Need {
    Nothing,
    /// The token, or a login.
    Token,
    /// The same, and with a login what proves that a page of this console asks.
    Change,
};

/// Lets in who may come in.
class Gate
{
public:
    explicit Gate(Tokens tokens) : m_tokens(std::move(tokens)) {}

    /// @return a refusal; nothing if the request may go on. A refusal that is held back must be
    /// told to `Sent` when it is sent
    std::optional<Answer> Refuses(const Request& request, Need need);
    void Sent(const Answer& refusal);
    /// Whether one who was let in would still be, without slowing anybody down.
    bool LetsIn(const Request& request);

    /// Logs in a browser that shows the token, and out.
    Answer LogIn(const Request& request);
    Answer LogOut(const Request& request);
    /// What the page must bring along with changes.
    Answer ShowLogin(const Request& request);

private:
    bool ShowsToken(const Request& request);
    Answer RefuseToken();
    std::optional<Answer> RefusesLogin(const Request& request, Need need);

    Tokens m_tokens;
    /// Tells one start of the console from another one, since logins end with it.
    QByteArray m_run = NewSecret();
    LoginGuard m_guard;
};

} // namespace vantrel::console
