#pragma once

#include <QImage>
#include <QStringList>

namespace vantrel::test {

/// @file Reads bar codes back with programs that know nothing of the station. Each gives the texts
/// of all codes it finds.

/// Reads all kinds. Codabar may come without its start and stop letters. It looks for Data Matrix
/// and Aztec Code around the middle of the picture only.
QStringList CodesByZxing(const QImage& picture);
/// Reads QR Code and all linear kinds; UPC-A comes with a leading 0.
QStringList CodesByZbar(const QImage& picture);
/// Reads Data Matrix.
QStringList CodesByDmtx(const QImage& picture);
/// Reads PDF417, and Aztec Code of plain ASCII texts, with a library of another language than
/// `CodesByZxing`.
QStringList CodesByScript(const QImage& picture);

} // namespace vantrel::test
