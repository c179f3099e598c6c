#include "road/SeenWindows.h"
#include "support/Events.h"
#include <gtest/gtest.h>

namespace vantrel::test {

std::optional<Seen> SeenWindows::Window(const std::function<bool(const Seen&)>& fits) const
{
    for (const Seen& program : m_bus->Programs()) {
        const QList<Seen> windows = program.Children();
        for (const Seen& window : windows) {
            if (fits(window) && window.IsShowing())
                return window;
        }
    }
    return std::nullopt;
}

std::optional<Seen> SeenWindows::Main() const
{
    return Window([](const Seen& seen) { return seen.Role() == QStringLiteral("frame"); });
}

QStringList SeenWindows::Shown() const
{
    QStringList shown;
    Window([&](const Seen& seen) {
        if (seen.IsShowing())
            shown += seen.Role() + u'|' + seen.Name();
        return false;
    });
    return shown;
}

std::optional<Seen> SeenWindows::Dialog(const QString& caption) const
{
    return Window([&](const Seen& seen) {
        // A plain box is an alert.
        const QString role = seen.Role();
        return (role == QStringLiteral("dialog") || role.startsWith(QStringLiteral("alert"))) &&
               seen.Name() == caption;
    });
}

Seen SeenWindows::MenuBar() const
{
    return Main()
        .value()
        .Find([](const Seen& seen) { return seen.Role() == QStringLiteral("menu bar"); })
        .value();
}

Seen SeenWindows::Menu(const Seen& parent, const char* caption)
{
    return parent.Child(QLatin1StringView(caption)).Children().value(0, parent);
}

void SeenWindows::Choose(std::initializer_list<const char*> captions) const
{
    Seen place = MenuBar();
    for (const char* const* caption = captions.begin(); caption + 1 != captions.end(); ++caption)
        place = Menu(place, *caption);
    place.Child(QLatin1StringView(captions.end()[-1])).Press();
}

void SeenWindows::Answer(const QString& caption, const QString& button) const
{
    std::optional<Seen> found;
    EXPECT_TRUE(EventsUntil([&] {
        if (const auto box = Dialog(caption))
            found = box->Find([&](const Seen& seen) {
                return seen.Role() == QStringLiteral("push button") && seen.Name() == button;
            });
        return found.has_value();
    })) << caption.toStdString()
        << " is not asked, or has no " << button.toStdString() << "; shown are "
        << Shown().join(QStringLiteral(", ")).toStdString();
    found.value().Press();
    EXPECT_TRUE(EventsUntil([&] { return !Dialog(caption).has_value(); })) << caption.toStdString();
}

QStringList SeenWindows::OnCard() const
{
    const auto main = Main();
    if (!main)
        return {};
    const auto card =
        main->Find([](const Seen& seen) { return seen.Name() == QStringLiteral("Card"); });
    if (!card)
        return {};
    QStringList names;
    const QList<Seen> objects = card->Children();
    for (const Seen& object : objects)
        names.append(object.Name());
    return names;
}

} // namespace vantrel::test
