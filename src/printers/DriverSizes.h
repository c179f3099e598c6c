#pragma once

#include <QByteArray>
#include <QIODevice>
#include <optional>
#include <vector>

namespace vantrel {

/// Sides of a sheet as drivers list them, in hundredths of a millimetre.
struct SheetSize
{
    int Width = 0;
    int Length = 0;
};

/// The sizes that a queue's driver knows by names of its own, which users may set for the queue.
class DriverSizes
{
public:
    DriverSizes() = default;
    /// Reads a driver's description. What is no size in it is passed over.
    explicit DriverSizes(QIODevice& ppd);

    /// @return the size of that name, in any case of its letters
    std::optional<SheetSize> Named(const QByteArray& name) const;
    /// The name that the driver gives its default; it need not be one of its sizes.
    const QByteArray& DefaultName() const { return m_defaultName; }

private:
    struct NamedSize
    {
        QByteArray Name;
        SheetSize Size;
    };
    void TakeSize(const QByteArray& line);

    QByteArray m_defaultName;
    std::vector<NamedSize> m_sizes;
};

} // namespace vantrel
