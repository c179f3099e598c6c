#pragma once

#include <QString>
#include <QStringList>
#include <ostream>

// How test failures show Qt's texts.
inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}
