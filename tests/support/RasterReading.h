#pragma once

#include <QImage>
#include <QString>

namespace vantrel::test {

/// @return the first page of dots that a print server made for a driver; fails the test where there
/// is none, or one of another colour than eight bits each of red, green and blue
QImage ImageOfRaster(const QString& path);

} // namespace vantrel::test
