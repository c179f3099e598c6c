#include "FuzzInput.h"
#include "console/Gate.h"
#include <QFile>
#include <QJsonDocument>
#include <QTemporaryDir>

// Whatever a client sends in its headers and its body: nobody comes in without the token or a
// login, and no change is let in that a page of others could send.

namespace {

using namespace vantrel;
using namespace vantrel::console;

/// A gate and what opens it.
struct House
{
    House()
    {
        QFile file(Folder.filePath(QStringLiteral("Console.token")));
        fuzz::Require(file.open(QIODevice::ReadOnly), "the token can be read");
        Token = file.readAll().trimmed();
    }

    QTemporaryDir Folder;
    console::Gate Gate{Tokens(Folder.filePath(QStringLiteral("Console.token")))};
    QByteArray Token;
};

Request RequestOf(fuzz::Input input)
{
    Request request;
    request.Method = "POST";
    request.IsSecure = input.Bytes().startsWith('s');
    request.Host = input.Bytes();
    request.Origin = input.Bytes();
    request.FetchSite = input.Bytes();
    request.Authorization = input.Bytes();
    request.Cookie = input.Bytes();
    request.ForgeryToken = input.Bytes();
    request.ContentType = input.Bytes();
    request.Body = input.Rest();
    return request;
}

/// The cookie of an answer, as a browser sends it back; empty if it has none.
QByteArray CookieOf(const Answer& answer)
{
    for (const auto& [name, value] : answer.Headers) {
        if (name == "Set-Cookie")
            return value.left(value.indexOf(';'));
    }
    return {};
}

/// Logs in as the owner does and changes something, with the request's own headers.
void UseAsOwner(House& house, Request request)
{
    request.Authorization.clear();
    request.Origin.clear();
    request.FetchSite.clear();
    request.ContentType = "application/json; charset=utf-8";
    request.Body = "{\"token\": \"" + house.Token + "\"}";
    const Answer in = house.Gate.LogIn(request);
    fuzz::Require(in.Status == 204, "the token lets in");
    request.Cookie = CookieOf(in);
    fuzz::Require(!house.Gate.Refuses(request, Need::Token), "a login lets in");
    request.ForgeryToken = "0";
    fuzz::Require(house.Gate.Refuses(request, Need::Change).has_value(),
                  "a change wants what proves its page");
    const QJsonDocument shown = QJsonDocument::fromJson(house.Gate.ShowLogin(request).Body);
    request.ForgeryToken = shown[QStringLiteral("forgery_token")].toString().toLatin1();
    fuzz::Require(!house.Gate.Refuses(request, Need::Change), "the page of a login may change");
    house.Gate.LogOut(request);
    fuzz::Require(house.Gate.Refuses(request, Need::Token).has_value(), "a login ends");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static House house;
    const Request request = RequestOf(fuzz::Input(data, size));
    // No text of a fuzzer is a secret of 256 bits.
    for (const Need need : {Need::Token, Need::Change}) {
        const auto refusal = house.Gate.Refuses(request, need);
        fuzz::Require(refusal && refusal->Status >= 400 && refusal->Status < 500,
                      "nobody comes in without the token");
        house.Gate.Sent(*refusal);
    }
    const Answer in = house.Gate.LogIn(request);
    fuzz::Require(in.Status >= 400 && CookieOf(in).isEmpty(), "no other text is the token");
    house.Gate.Sent(in);
    house.Gate.LogOut(request);
    house.Gate.ShowLogin(request);
    if (!request.Host.contains('\r'))
        UseAsOwner(house, request);
    return 0;
}
