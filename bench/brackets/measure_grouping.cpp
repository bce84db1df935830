// How long 'veskhdr group' takes for its parts: reading the headers of a folder of 2,000 small
// files, sorting their shots with the pictures at hand, and sorting 10,000 shots of one time, which
// tell nothing of where to cut. Each after a first round that warms up; wall clock and processor
// time.

#include "SceneComparison.h"
#include "card_files.h"
#include "folder_shots.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <cstdio>
#include <ctime>
#include <functional>

namespace {

void measure(const char *name, const std::function<size_t()> &work)
{
    work();
    QElapsedTimer timer;
    timer.start();
    const std::clock_t before = std::clock();
    const size_t result = work();
    const double seconds = double(timer.nsecsElapsed()) / 1e9;
    const double processor = double(std::clock() - before) / CLOCKS_PER_SEC;
    std::printf("%-36s %8.3f s  (processor %.3f s)  %zu\n", name, seconds, processor, result);
}

std::vector<Shot> shotsOfOneTime(int count, const std::vector<double> &biases)
{
    std::vector<Shot> shots;
    for (int i = 0; i < count; ++i) {
        Shot shot;
        shot.path = QStringLiteral("/card/IMG_%1.JPG").arg(i, 5, 10, QLatin1Char('0'));
        shot.model = QStringLiteral("Camera");
        shot.size = QSize(6000, 4000);
        shot.takenAt = QDateTime(QDate(2026, 6, 21), QTime(12, 0), Qt::UTC);
        shot.exposureBias = biases[size_t(i) % biases.size()];
        shots.push_back(shot);
    }
    return shots;
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const QTemporaryDir folder;
    ShotCard card(1, ShotCard::Clock::Exact);
    card.fill(2000);
    if (!card_files::write(card, folder.path()))
        return 74;
    const auto read = [&folder] {
        return brackets::readFolder(folder.path(), {}, [](const QString &, const QString &) {});
    };
    const std::vector<Shot> shots = read();
    measure("read 2,000 headers", [&] { return read().size(); });
    measure("sort them, pictures at hand", [&] {
        SceneComparison scenes;
        return brackets::find(shots, {},
                              [&scenes](const Shot &one, const Shot &other) {
                                  return scenes.compare(one, other);
                              })
            .brackets.size();
    });
    const std::vector<Shot> triples = shotsOfOneTime(10000, {0, -2, 2});
    measure("10,000 of one time, threes",
            [&] { return brackets::find(triples, {}).brackets.size(); });
    const std::vector<Shot> equal = shotsOfOneTime(10000, {0});
    measure("10,000 of one time, all equal",
            [&] { return brackets::find(equal, {}).brackets.size(); });
    std::vector<double> ramp;
    for (int i = 0; i < 60; ++i)
        ramp.push_back(i / 3.0);
    const std::vector<Shot> ramps = shotsOfOneTime(10000, ramp);
    measure("10,000 of one time, sixties",
            [&] { return brackets::find(ramps, {}).brackets.size(); });
    return 0;
}
