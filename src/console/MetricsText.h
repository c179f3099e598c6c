#pragma once

#include <QByteArray>
#include <QString>
#include <utility>
#include <vector>

namespace vantrel::console {

/// Writes figures in the format OpenMetrics 1.0, in UTF-8.
class MetricsText
{
public:
    using Labels = std::vector<std::pair<QByteArray, QString>>;

    /// Begins a family of figures.
    /// @param type  "counter", "gauge" or "histogram"
    /// @param unit  the end of its name that is a unit; null for none
    void Begin(const QByteArray& name, const QByteArray& type, const QByteArray& help,
               const char* unit = nullptr);
    /// Adds a figure of the family.
    /// @param ending  what stands behind the family's name, such as "_total"
    void Add(const QByteArray& ending, const Labels& labels, qlonglong value);
    void Add(const QByteArray& ending, const Labels& labels, double value);
    /// The whole text. Nothing may be added afterwards.
    QByteArray Ended();

    /// A number as the format writes it, always with a point.
    static QString Number(double value);

private:
    void AddText(const QByteArray& ending, const Labels& labels, const QByteArray& value);

    QByteArray m_name;
    QByteArray m_text;
};

} // namespace vantrel::console
