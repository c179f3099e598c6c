#include "FuzzInput.h"
#include "console/Query.h"
#include "console/Request.h"
#include "console/Routes.h"

// Whatever a client sends as a target, a cookie and a body: no part of a path leads elsewhere, a
// cookie is a piece of its header, and a query is a filter or is refused.

namespace {

using namespace vantrel;
using namespace vantrel::console;

void RequirePath(const QStringList& path)
{
    for (const QString& part : path) {
        fuzz::Require(!part.isEmpty() && part != QStringLiteral(".") &&
                          part != QStringLiteral(".."),
                      "a part of a path is a name");
        fuzz::Require(part.isValidUtf16(), "a part of a path is a text");
        for (const QChar character : part)
            fuzz::Require(character != u'/' && character != u'\\' && character >= u' ',
                          "a part of a path holds no separator");
    }
    PathNumbers numbers;
    for (const Route& route : Routes()) {
        if (!IsOnPath(path, QLatin1StringView(route.Path), numbers))
            continue;
        for (const qlonglong number : numbers)
            fuzz::Require(number > 0, "a number in a path is at least 1");
    }
}

void ReadFilter(const QMap<QString, QString>& query)
{
    try {
        const LedgerFilter filter = FilterOf(query);
        fuzz::Require(filter.Limit > 0 && filter.Limit <= 1000, "a list has an end");
        fuzz::Require(filter.Text.size() <= LongestSearchText, "a text can be searched for");
    } catch (const NotTaken& refusal) {
        fuzz::Require(refusal.Status == 400 && !refusal.Reason.isEmpty(), "a refusal has a reason");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::Input input(data, size);
    const QByteArray target = input.Bytes();
    const QByteArray header = input.Bytes();
    if (const auto read = ReadTarget(target)) {
        RequirePath(read->Path);
        ReadFilter(read->Query);
    }
    const QByteArray cookie = CookieIn(header, "vantrel");
    fuzz::Require(header.contains(cookie), "a cookie is a piece of its header");
    fuzz::Require(!cookie.contains(';'), "a cookie ends at its separator");
    ReadObject(input.Rest());

    Request request;
    request.Host = target;
    request.Origin = header;
    request.ContentType = header;
    request.HasJson();
    if (!header.isEmpty() && request.IsFromOwnPage())
        fuzz::Require(header == QByteArray("http://" + target),
                      "an origin of the own page is its address");
    return 0;
}
