#include "first_window_size.h"

namespace {

constexpr QSize kComfortable(1200, 800);
constexpr QSize kDesktopFrame(24, 64); // a title bar of a large font, and margins

} // namespace

QSize workspace::firstWindowSize(const QSize &available)
{
    return kComfortable.boundedTo(available - kDesktopFrame);
}
