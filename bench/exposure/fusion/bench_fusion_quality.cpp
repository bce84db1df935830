// How good the fusion is on folders of brackets: MEF-SSIM, with and without the search for
// movement, beside the middle shot and OpenCV's MergeMertens; MEF-SSIMd for folders with movement.
//
// bench_fusion_quality [--moving] FOLDER...

#include "fusion.h"
#include "mef_ssim.h"
#include "mef_ssimd.h"
#include "motion.h"

#ifdef VESK_HAS_OPENCV
#include "MertensRival.h"
#endif

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <map>

namespace {

using Scores = std::map<std::string, double>; ///< by method

std::vector<QImage> load(const QString &folder)
{
    std::vector<QImage> shots;
    const QDir dir(folder);
    for (const QString &name : dir.entryList(QDir::Files, QDir::Name)) {
        const QImage shot(dir.filePath(name));
        if (!shot.isNull())
            shots.push_back(shot.convertToFormat(QImage::Format_RGB32));
    }
    return shots;
}

QImage fused(const std::vector<QImage> &pictures, const std::vector<QImage> &masks)
{
    std::vector<fusion::Shot> shots;
    for (size_t i = 0; i < pictures.size(); ++i)
        shots.push_back({pictures[i], i < masks.size() ? masks[i] : QImage()});
    return fusion::fuse(shots).picture;
}

Scores scoresOf(const std::vector<QImage> &shots, bool moving)
{
    const auto score = moving ? mefSsimd::score : mefSsim::score;
    Scores scores;
    scores["fusion"] = score(shots, fused(shots, {}));
    scores["fusion, ghosts removed"] = score(shots, fused(shots, motion::find(shots).masks));
    scores["middle shot"] = score(shots, shots[shots.size() / 2]);
#ifdef VESK_HAS_OPENCV
    MertensRival rival(shots);
    rival.merge();
    scores["MergeMertens"] = score(shots, rival.result());
#endif
    return scores;
}

} // namespace

int main(int count, char **arguments)
{
    const bool moving = count > 1 && std::strcmp(arguments[1], "--moving") == 0;
    Scores sums;
    Scores worst;
    int folders = 0;
    for (int i = moving ? 2 : 1; i < count; ++i) {
        const std::vector<QImage> shots = load(QString::fromLocal8Bit(arguments[i]));
        if (shots.size() < 2)
            continue;
        ++folders;
        std::printf("%s\n", arguments[i]);
        for (const auto &[method, score] : scoresOf(shots, moving)) {
            std::printf("  %-24s %.4f\n", method.c_str(), score);
            sums[method] += score;
            worst[method] = worst.count(method) > 0 ? std::min(worst[method], score) : score;
        }
    }
    for (const auto &[method, sum] : sums)
        std::printf("%-26s mean %.4f, worst %.4f\n", method.c_str(), sum / folders, worst[method]);
    return 0;
}
