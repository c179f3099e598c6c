#include "console/Page.h"
#include <QFile>

void InitPageResources()
{
    Q_INIT_RESOURCE(console);
}

namespace vantrel::console {

namespace {

struct File
{
    const char* Path;
    const char* Resource;
    const char* Type;
};

constexpr File Files[] = {
    {"", ":/console/page.html", "text/html; charset=utf-8"},
    {"page.js", ":/console/page.js", "text/javascript; charset=utf-8"},
    {"page.css", ":/console/page.css", "text/css; charset=utf-8"},
    {"icon.svg", ":/console/icon.svg", "image/svg+xml"},
};

} // namespace

std::optional<Answer> PageFile(const QStringList& path)
{
    const QString name = path.join(u'/');
    for (const File& file : Files) {
        if (name != QLatin1StringView(file.Path))
            continue;
        InitPageResources();
        QFile resource(QLatin1StringView(file.Resource));
        // It is built in.
        if (!resource.open(QIODevice::ReadOnly))
            return std::nullopt;
        Answer answer;
        answer.Type = file.Type;
        answer.Body = resource.readAll();
        return answer;
    }
    return std::nullopt;
}

} // namespace vantrel::console
