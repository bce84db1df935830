// Prints how good a fused picture is, from the shots alone: MEF-SSIM, and with --moving MEF-SSIMd.
//
// score_fusion [--moving] RESULT SHOT SHOT...

#include "mef_ssim.h"
#include "mef_ssimd.h"

#include <cstdio>
#include <cstring>

namespace {

bool loadShots(int count, char **names, std::vector<QImage> &shots)
{
    for (int i = 0; i < count; ++i) {
        shots.emplace_back(QString::fromLocal8Bit(names[i]));
        if (shots.back().isNull() || shots.back().size() != shots.front().size()) {
            std::fprintf(stderr, "score_fusion: %s is no picture of the first's size\n", names[i]);
            return false;
        }
    }
    return true;
}

} // namespace

int main(int count, char **arguments)
{
    const bool moving = count > 1 && std::strcmp(arguments[1], "--moving") == 0;
    const int first = moving ? 2 : 1;
    if (count < first + 3) {
        std::fprintf(stderr, "usage: score_fusion [--moving] RESULT SHOT SHOT...\n");
        return 2;
    }
    std::vector<QImage> pictures;
    if (!loadShots(count - first, arguments + first, pictures))
        return 1;
    const QImage result = pictures.front();
    pictures.erase(pictures.begin());
    std::printf("%.4f\n",
                moving ? mefSsimd::score(pictures, result) : mefSsim::score(pictures, result));
    return 0;
}
