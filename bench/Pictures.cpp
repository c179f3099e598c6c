// Writes the pictures of the benchmark card into a folder, for comparison with other programs.

#include "CardParts.h"
#include <QCoreApplication>
#include <QDir>
#include <cstdio>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const QDir folder(arguments.value(1));
    constexpr int quality = 85;
    if (arguments.size() != 2 ||
        !vantrel::bench::Photo(638, 1012).save(folder.filePath(QStringLiteral("back.jpg")), nullptr,
                                               quality) ||
        !vantrel::bench::Photo(300, 400).save(folder.filePath(QStringLiteral("photo.jpg")), nullptr,
                                              quality)) {
        std::fputs("bench_pictures: give a folder that can be written\n", stderr);
        return 1;
    }
    return 0;
}
