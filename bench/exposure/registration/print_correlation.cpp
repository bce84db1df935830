// Prints the mean local correlation of aligned pictures with the first of them, as
// bench_registration_fit counts it, for comparing what programs wrote:
//   print_correlation REFERENCE PICTURE...

#include "LocalCorrelation.h"

#include <QGuiApplication>
#include <QImageReader>

#include <cstdio>

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    QImageReader::setAllocationLimit(0);
    const QImage reference = argc > 2 ? QImageReader(argv[1]).read() : QImage();
    double sum = 0;
    for (int i = 2; i < argc; ++i) {
        const QImage picture = QImageReader(argv[i]).read();
        if (reference.isNull() || picture.size() != reference.size()) {
            std::fprintf(stderr, "print_correlation: %s is not as large as %s\n", argv[i], argv[1]);
            return 1;
        }
        sum += localCorrelation(reference, picture).mean;
    }
    std::printf("%.3f\n", argc > 2 ? sum / (argc - 2) : 0.0);
    return argc > 2 ? 0 : 64;
}
