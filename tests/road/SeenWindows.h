#pragma once

#include "road/AccessBus.h"
#include <functional>
#include <initializer_list>
#include <optional>

namespace vantrel::test {

/// The windows that programs show on an accessibility bus, found and worked as by a screen reader.
class SeenWindows
{
public:
    explicit SeenWindows(const AccessBus& bus) : m_bus(&bus) {}

    /// The visible window that fits.
    std::optional<Seen> Window(const std::function<bool(const Seen&)>& fits) const;
    std::optional<Seen> Main() const;
    /// All visible windows as "role|name".
    QStringList Shown() const;
    /// A dialog or a box with that caption.
    std::optional<Seen> Dialog(const QString& caption) const;
    Seen MenuBar() const;
    /// A menu of the bar, or a menu in another, opened.
    static Seen Menu(const Seen& parent, const char* caption);
    /// Chooses an entry by the captions of its menus and its own.
    void Choose(std::initializer_list<const char*> captions) const;
    /// Waits for a dialog or a box, and presses one of its buttons. Fails the test where there is
    /// none.
    void Answer(const QString& caption, const QString& button) const;
    /// The names of what stands on the card; nothing while there is no card.
    QStringList OnCard() const;

private:
    const AccessBus* m_bus;
};

} // namespace vantrel::test
