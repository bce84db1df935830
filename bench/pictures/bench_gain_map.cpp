// Writing a JPEG file with a gain map beside writing it without: ratios of processor time, one
// thread, in one run. bench_gain_map SHOT SHOT...

#include "gain_map_maker.h"
#include "parallel_rows.h"
#include "picture_reader.h"
#include "picture_writer.h"
#include "set_merge.h"
#include "shot_exposures.h"

#include <QBuffer>
#include <QCoreApplication>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

#include <time.h>

namespace {

constexpr int kRuns = 7;

double processorSeconds()
{
    timespec time = {};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return double(time.tv_sec) + 1e-9 * double(time.tv_nsec);
}

struct Work
{
    const char *title;
    std::function<void()> run;
    std::vector<double> seconds;

    double median()
    {
        std::sort(seconds.begin(), seconds.end());
        return seconds[seconds.size() / 2];
    }
};

void measure(std::vector<Work> &works)
{
    for (int run = 0; run <= kRuns; ++run) {
        for (Work &work : works) {
            const double begin = processorSeconds();
            work.run();
            if (run > 0) // the first one warms up
                work.seconds.push_back(processorSeconds() - begin);
        }
    }
}

void write(const QImage &picture, const GainMap &map)
{
    WriteOptions options;
    options.gainMap = map;
    QByteArray file;
    QBuffer device(&file);
    device.open(QIODevice::ReadWrite);
    const WriteResult result = picture::write(picture, device, PictureFormat::Jpeg, options);
    if (!result.reason.isEmpty())
        qFatal("%s", qPrintable(result.reason));
}

display::BrightSource merged(const QStringList &files)
{
    QList<QImage> shots;
    for (const QString &file : files)
        shots += picture::read(file, exposure::readOptionsFor(exposure::Method::Fusion)).image;
    exposure::Options how;
    how.product = exposure::Product::Both;
    how.exposures = brackets::shotExposures(files).relative;
    const exposure::Outcome outcome =
        exposure::mergeSet(exposure::Method::Fusion, std::move(shots), how);
    return {outcome.picture.convertToFormat(QImage::Format_RGB32), outcome.light, outcome.bounds};
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const display::BrightSource source = merged(application.arguments().mid(1));
    if (source.base.isNull()) {
        std::fprintf(stderr, "usage: bench_gain_map SHOT SHOT...\n");
        return 64;
    }
    parallel::setThreadLimit(1);
    const GainMap map = display::makeGainMap(source);
    if (map.picture != display::makeGainMapPlain(source).picture)
        qFatal("fast and plain differ");
    std::vector<Work> works = {
        {"plain JPEG file", [&] { write(source.base, {}); }, {}},
        {"with a gain map", [&] { write(source.base, map); }, {}},
        {"making the map", [&] { display::makeGainMap(source); }, {}},
        {"making the map, plain code", [&] { display::makeGainMapPlain(source); }, {}}};
    measure(works);
    const double plain = works.front().median();
    std::printf("%d x %d pixels\n", source.base.width(), source.base.height());
    for (Work &work : works)
        std::printf("%-28s %7.0f ms %6.2f x\n", work.title, 1000 * work.median(),
                    work.median() / plain);
    return 0;
}
