// The radiance beside OpenCV's, in one run: processor time for five shots of 12 megapixels, and how
// far the two lie apart on real brackets, in stops of luminance.

#include "DebevecRival.h"
#include "radiance.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <string>

namespace {

struct Bracket
{
    const char *name;
    std::vector<QString> files;
    std::vector<double> seconds;
};

double processorSeconds()
{
    return double(std::clock()) / CLOCKS_PER_SEC;
}

double wallSeconds()
{
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return double(now.tv_sec) + double(now.tv_nsec) * 1e-9;
}

/// Shots of a drawn scene, a stop and a half apart.
std::vector<QImage> drawnShots(int count, QSize size)
{
    std::vector<QImage> shots;
    for (int i = 0; i < count; ++i) {
        QImage shot(size, QImage::Format_RGB32);
        for (int y = 0; y < size.height(); ++y) {
            auto *row = reinterpret_cast<QRgb *>(shot.scanLine(y));
            for (int x = 0; x < size.width(); ++x) {
                const double light = std::exp2(-8.0 + 8.0 * ((x * 31 + y * 17) % 997) / 997.0);
                const int level =
                    int(std::min(255.0, 255.0 * std::pow(light * std::exp2(1.5 * i), 1 / 2.2)));
                row[x] = qRgb(level, level * 7 / 8, level * 3 / 4);
            }
        }
        shots.push_back(shot);
    }
    return shots;
}

std::vector<radiance::Shot> asShots(const std::vector<QImage> &pictures,
                                    const std::vector<double> &exposures)
{
    std::vector<radiance::Shot> shots;
    for (size_t i = 0; i < pictures.size(); ++i)
        shots.push_back({{pictures[i], {}}, exposures[i]});
    return shots;
}

/// The least of some runs, of processor and of wall time.
template <typename Work>
std::pair<double, double> leastOf(int runs, Work work)
{
    std::pair<double, double> least = {1e9, 1e9};
    for (int run = 0; run < runs; ++run) {
        const double processor = processorSeconds();
        const double wall = wallSeconds();
        work();
        least.first = std::min(least.first, processorSeconds() - processor);
        least.second = std::min(least.second, wallSeconds() - wall);
    }
    return least;
}

void printSpeed()
{
    const std::vector<QImage> shots = drawnShots(5, {4000, 3000});
    const std::vector<double> exposures = {1.0, std::exp2(1.5), std::exp2(3.0), std::exp2(4.5),
                                           std::exp2(6.0)};
    const auto ours = leastOf(5, [&] { radiance::merge(asShots(shots, exposures)); });
    DebevecRival rival(shots, exposures);
    rival.calibrate();
    const auto theirs = leastOf(3, [&] { rival.merge(); });
    std::printf("five shots of 12 megapixels, curve recovered: %.0f ms of processor time, %.0f ms\n"
                "  MergeDebevec, curve given: %.0f ms, %.0f ms: %.1f x, %.1f x   (goal: 10)\n",
                ours.first * 1e3, ours.second * 1e3, theirs.first * 1e3, theirs.second * 1e3,
                theirs.first / ours.first, theirs.second / ours.second);
}

double luminance(double red, double green, double blue)
{
    return 0.2126 * red + 0.7152 * green + 0.0722 * blue;
}

/// Whether some shot shows the pixel well in all channels.
bool isWellShown(const std::vector<QImage> &shots, int x, int y)
{
    return std::any_of(shots.begin(), shots.end(), [x, y](const QImage &shot) {
        const QRgb word = shot.pixel(x, y);
        const auto [least, most] = std::minmax({qRed(word), qGreen(word), qBlue(word)});
        return least >= 20 && most <= 235;
    });
}

void printDistance(const Bracket &bracket)
{
    std::vector<QImage> shots;
    for (const QString &file : bracket.files) {
        const QImage shot(QString::fromUtf8(VESK_TEST_PICTURES "/") + file);
        if (shot.isNull()) {
            std::printf("%s: no pictures\n", bracket.name);
            return;
        }
        shots.push_back(shot.convertToFormat(QImage::Format_RGB32));
    }
    const radiance::Result ours = radiance::merge(asShots(shots, bracket.seconds));
    DebevecRival rival(shots, bracket.seconds);
    rival.calibrate();
    rival.merge();
    std::vector<double> differences;
    for (int y = 0; y < shots[0].height(); ++y) {
        const auto *pixels = reinterpret_cast<const float *>(ours.picture.constScanLine(y));
        const float *theirs = rival.row(y);
        for (int x = 0; x < shots[0].width(); ++x, pixels += 4, theirs += 3) {
            const double difference =
                std::log2(luminance(double(pixels[0]), double(pixels[1]), double(pixels[2])) /
                          luminance(double(theirs[2]), double(theirs[1]), double(theirs[0])));
            if (std::isfinite(difference) && isWellShown(shots, x, y))
                differences.push_back(difference);
        }
    }
    const auto middle = differences.begin() + ptrdiff_t(differences.size() / 2);
    std::nth_element(differences.begin(), middle, differences.end());
    const double scale = *middle;
    double sum = 0.0;
    for (const double difference : differences)
        sum += (difference - scale) * (difference - scale);
    std::printf("%s: %.3f stops rms from MergeDebevec, curve %s   (goal: 0.10)\n", bracket.name,
                std::sqrt(sum / double(differences.size())),
                ours.isCurveRecovered ? "recovered" : "of the profile");
    for (size_t i = 0; i < ours.exposures.size(); ++i)
        std::printf("  %g s was %.4g s\n", bracket.seconds[i],
                    ours.exposures[i] * bracket.seconds[0]);
}

} // namespace

int main()
{
    printSpeed();
    printDistance({"memorial",
                   {"test1_memorial0061.png", "test1_memorial0064.png", "test1_memorial0067.png",
                    "test1_memorial0070.png", "test1_memorial0073.png"},
                   {32, 4, 0.5, 0.0625, 0.0078125}});
    printDistance({"arch",
                   {"arch/StLouisArchMultExpEV+4.09.jpeg", "arch/StLouisArchMultExpEV+1.51.jpeg",
                    "arch/StLouisArchMultExpEV-1.82.jpeg", "arch/StLouisArchMultExpEV-4.72.jpeg"},
                   {15, 2.5, 0.25, 1 / 30.0}});
    return 0;
}
