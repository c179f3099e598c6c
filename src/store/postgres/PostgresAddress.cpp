#include "store/postgres/PostgresAddress.h"
#include "base/Failure.h"
#include <QRegularExpression>
#include <algorithm>
#include <libpq-fe.h>
#include <memory>

namespace vantrel {

namespace {

struct OptionsDeleter
{
    void operator()(PQconninfoOption* options) const { PQconninfoFree(options); }
};

using Options = std::unique_ptr<PQconninfoOption, OptionsDeleter>;

/// Null for an address that cannot be understood.
Options Parsed(const QString& address)
{
    // The library's own message quotes the address, which may hold a password.
    char* message = nullptr;
    Options options(PQconninfoParse(address.toUtf8().constData(), &message));
    PQfreemem(message);
    return options;
}

QString ValueOf(const Options& options, QLatin1StringView keyword)
{
    for (const PQconninfoOption* option = options.get();
         option != nullptr && option->keyword != nullptr; ++option)
        if (keyword == QLatin1StringView(option->keyword) && option->val != nullptr)
            return QString::fromUtf8(option->val);
    return {};
}

} // namespace

bool IsPostgresAddress(const QString& text)
{
    static const QRegularExpression form(QStringLiteral("^(postgres(ql)?://|\\s*[a-z_]+\\s*=)"));
    return form.match(text).hasMatch();
}

void RequireSafeAddress(const QString& address)
{
    const Options options = Parsed(address);
    if (!options || address.contains(QChar(QChar::Null)))
        throw Failure(FailureNumber::InvalidCall,
                      QStringLiteral("The address of the store cannot be understood."));
    for (const QLatin1StringView keyword :
         {QLatin1StringView("password"), QLatin1StringView("sslpassword")})
        if (!ValueOf(options, keyword).isEmpty())
            throw Failure(FailureNumber::InvalidCall,
                          QStringLiteral("The address of the store holds a password. Put it into a "
                                         "password file or a service file instead."));
}

ServerHosts HostsOf(const QString& address, qsizetype first)
{
    const Options options = Parsed(address);
    const auto listOf = [&](const char* keyword) {
        return ValueOf(options, QLatin1StringView(keyword)).toUtf8();
    };
    ServerHosts hosts{listOf("host"), listOf("hostaddr"), listOf("port")};
    const qsizetype count = std::max(hosts.Names.count(','), hosts.Numbers.count(',')) + 1;
    if (count < 2)
        return {};
    for (QByteArray* list : {&hosts.Names, &hosts.Numbers, &hosts.Ports}) {
        QByteArrayList entries = list->split(',');
        // One port may stand for all hosts.
        if (entries.size() == count)
            std::rotate(entries.begin(), entries.begin() + first % count, entries.end());
        *list = entries.join(',');
    }
    return hosts;
}

QString ShownAddress(const QString& address)
{
    const Options options = Parsed(address);
    QString host = ValueOf(options, QLatin1StringView("host"));
    if (host.isEmpty())
        host = ValueOf(options, QLatin1StringView("hostaddr"));
    if (host.isEmpty())
        host = ValueOf(options, QLatin1StringView("service"));
    const QString name = ValueOf(options, QLatin1StringView("dbname"));
    return name.isEmpty() ? host : host + QLatin1Char('/') + name;
}

} // namespace vantrel
