#pragma once

#include <QByteArray>
#include <QIODevice>
#include <optional>
#include <vector>

namespace vantrel {

/// Sides of a sheet in hundredths of a millimetre.
struct SheetSize
{
    int Width = 0;
    int Length = 0;
};

/// The named sizes of a queue's driver, which users may set for the queue.
class DriverSizes
{
public:
    DriverSizes() = default;
    /// Reads a driver's description (PPD). Lines without a valid size are ignored. Never fails.
    explicit DriverSizes(QIODevice& ppd);

    /// @return the size of that name, compared without regard to case, or nothing
    std::optional<SheetSize> Named(const QByteArray& name) const;
    /// The name of the driver's default size; it need not be one of its sizes.
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
