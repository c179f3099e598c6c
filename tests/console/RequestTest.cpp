#include "console/Request.h"
#include "console/Routes.h"
#include "support/Print.h"
#include <gtest/gtest.h>

namespace vantrel::console {
namespace {

TEST(ConsoleTarget, IsReadIntoThePartsOfItsPathAndItsValues)
{
    const auto target =
        ReadTarget("/api/v1/records?text=Ada+L%C3%B6%2B&limit=5&empty=&bare&limit=6");
    ASSERT_TRUE(target);
    EXPECT_EQ(target->Path, QStringList({QStringLiteral("api"), QStringLiteral("v1"),
                                         QStringLiteral("records")}));
    EXPECT_EQ(target->Query.value(QStringLiteral("text")), QString::fromUtf8("Ada Lö+"));
    EXPECT_EQ(target->Query.value(QStringLiteral("limit")), QStringLiteral("6"));
    EXPECT_TRUE(target->Query.contains(QStringLiteral("empty")));
    EXPECT_TRUE(target->Query.contains(QStringLiteral("bare")));
}

TEST(ConsoleTarget, OfTheFirstPageHasNoParts)
{
    ASSERT_TRUE(ReadTarget("/"));
    EXPECT_EQ(ReadTarget("/")->Path, QStringList());
}

TEST(ConsoleTarget, ThatTriesToLeaveIsNone)
{
    for (const char* target : {"",
                               "*",
                               "records",
                               "http://other/",
                               "//",
                               "/..",
                               "/../etc/passwd",
                               "/api/../x",
                               "/./x",
                               "/api/%2e%2e/x",
                               "/api/%2E./x",
                               "/a%2Fb",
                               "/a%5Cb",
                               "/a\\b",
                               "/api//records",
                               "/api/",
                               "/%00",
                               "/a%0Ab",
                               "/a%7F",
                               "/%",
                               "/%4",
                               "/%GG",
                               "/%FF",
                               "/%C3",
                               "/%ED%A0%80",
                               "/x?text=%",
                               "/x?text=%FF",
                               "/x?%00=1"})
        EXPECT_FALSE(ReadTarget(target)) << target;
}

TEST(ConsoleTarget, WithTooManyValuesIsNone)
{
    EXPECT_TRUE(ReadTarget(QByteArray("/x?" + QByteArray("a=1&").repeated(50))));
    EXPECT_FALSE(ReadTarget(QByteArray("/x?" + QByteArray("a=1&").repeated(51))));
}

TEST(ConsoleTarget, OfAnyLengthIsReadInLinearTime)
{
    EXPECT_TRUE(ReadTarget(QByteArray("/" + QByteArray("%41").repeated(3'000'000))));
    EXPECT_TRUE(ReadTarget(QByteArray("/" + QByteArray("a/").repeated(1'000'000) + "a")));
}

TEST(ConsoleCookie, IsFoundByItsWholeName)
{
    EXPECT_EQ(CookieIn("a=1; vantrel=secret; b=2", "vantrel"), "secret");
    EXPECT_EQ(CookieIn("vantrel=first;vantrel=second", "vantrel"), "first");
    EXPECT_EQ(CookieIn("  vantrel=x=y  ", "vantrel"), "x=y");
    for (const char* header : {"", ";", "=", "vantrel", "xvantrel=1", "vantrelx=1", "Vantrel=1"})
        EXPECT_EQ(CookieIn(header, "vantrel"), "") << header;
}

TEST(ConsoleBody, IsAnObjectOrNothing)
{
    ASSERT_TRUE(ReadObject("{\"layout\": \"L\"}"));
    EXPECT_EQ(ReadObject("{\"layout\": \"L\"}")->value(u"layout").toString(), QStringLiteral("L"));
    for (const char* body : {"", "[]", "null", "\"x\"", "{", "{} {}", "{\"a\": }"})
        EXPECT_FALSE(ReadObject(body)) << body;
}

TEST(ConsoleBody, MayBeNestedAsDeepAsItLikes)
{
    EXPECT_FALSE(ReadObject("{\"a\": " + QByteArray(200'000, '[')));
    EXPECT_FALSE(
        ReadObject("{\"a\": " + QByteArray(100'000, '[') + QByteArray(100'000, ']') + "}"));
}

TEST(ConsoleRequest, OfAnotherPageIsToldByItsOrigin)
{
    Request request;
    request.Host = "127.0.0.1:8620";
    EXPECT_TRUE(request.IsFromOwnPage());
    request.Origin = "http://127.0.0.1:8620";
    EXPECT_TRUE(request.IsFromOwnPage());
    for (const char* origin : {"http://127.0.0.1:8621", "https://127.0.0.1:8620", "null",
                               "http://evil", "http://127.0.0.1:8620.evil"}) {
        request.Origin = origin;
        EXPECT_FALSE(request.IsFromOwnPage()) << origin;
    }
    request.Origin = "http://127.0.0.1:8620";
    for (const char* site : {"cross-site", "same-site"}) {
        request.FetchSite = site;
        EXPECT_FALSE(request.IsFromOwnPage()) << site;
    }
    request.FetchSite = "same-origin";
    EXPECT_TRUE(request.IsFromOwnPage());
    request.IsSecure = true;
    EXPECT_FALSE(request.IsFromOwnPage());
    request.Origin = "https://127.0.0.1:8620";
    EXPECT_TRUE(request.IsFromOwnPage());
}

TEST(ConsoleRequest, HasJsonIfItsTypeSaysSo)
{
    Request request;
    for (const char* type : {"application/json", "application/json; charset=utf-8",
                             "Application/JSON", " application/json "}) {
        request.ContentType = type;
        EXPECT_TRUE(request.HasJson()) << type;
    }
    for (const char* type : {"", ";", "text/plain", "text/plain; application/json",
                             "application/jsonp", "application/x-www-form-urlencoded"}) {
        request.ContentType = type;
        EXPECT_FALSE(request.HasJson()) << type;
    }
}

TEST(ConsoleRoute, TakesWholeNumbersFromOneOn)
{
    const QLatin1StringView pattern("api/v1/records/#/cards/#.png");
    PathNumbers numbers;
    const auto isOn = [&](const char* path) {
        return IsOnPath(QString::fromUtf8(path).split(u'/'), pattern, numbers);
    };
    ASSERT_TRUE(isOn("api/v1/records/12/cards/3.png"));
    EXPECT_EQ(numbers, PathNumbers({12, 3}));
    EXPECT_TRUE(isOn("api/v1/records/999999999999999999/cards/1.png"));
    for (const char* path :
         {"api/v1/records/0/cards/1.png", "api/v1/records/-1/cards/1.png",
          "api/v1/records/+1/cards/1.png", "api/v1/records/1/cards/.png",
          "api/v1/records/1/cards/1", "api/v1/records/1/cards/1.png/x",
          "api/v1/records/9999999999999999999/cards/1.png", "api/v1/records/1e3/cards/1.png",
          "api/v1/records/ 1/cards/1.png", "api/v1/records/\xD9\xA1/cards/1.png"})
        EXPECT_FALSE(isOn(path)) << path;
}

} // namespace
} // namespace vantrel::console
