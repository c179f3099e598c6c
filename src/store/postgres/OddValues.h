#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QString>
#include <QVariant>

namespace vantrel {

/// @file A column of a SQLite file may hold a value of any type, and gives back what suits its own.
/// A column of a PostgreSQL table cannot. The few values that do not fit, such as a word in a
/// column of numbers or a text with a null character, stand as JSON in a column of their own.

/// A value as the column holds it.
struct FittedValue
{
    /// What is written into the column; null if the value does not fit.
    QVariant Value;
    /// How a value that does not fit is written; empty if it does.
    QString Odd;
};

/// The value as SQLite stores it in a column of that declared type, and whether it fits.
FittedValue FitValue(const QVariant& value, const QByteArray& type);

/// The value of a text that `FitValue` made.
QVariant OddValue(const QString& odd);

} // namespace vantrel
