#include "ProgressBar.h"

#include "library_messages.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <unistd.h>

namespace {

constexpr int kBarWidth = 30;

/// The bar redraws its line, which a dumb terminal cannot.
bool canRedraw()
{
    const char *terminal = std::getenv("TERM");
    return ::isatty(::fileno(library_messages::ownErrorStream())) && terminal &&
           std::strcmp(terminal, "dumb") != 0;
}

void redraw(const QString &line)
{
    std::fputs(("\r" + line.toLocal8Bit() + "\x1b[K").constData(),
               library_messages::ownErrorStream());
    std::fflush(library_messages::ownErrorStream());
}

} // namespace

ProgressBar::ProgressBar()
    : isForPrograms(qEnvironmentVariable("VESKHDR_PROGRESS") == QLatin1String("lines"))
    , isVisible(!isForPrograms && canRedraw())
{
}

void ProgressBar::show(double fraction, const QString &step)
{
    if (isForPrograms)
        tell(fraction);
    if (!isVisible)
        return;
    const int done = std::clamp(qRound(fraction * kBarWidth), 0, kBarWidth);
    const QString line = QLatin1Char('[') + QString(done, QLatin1Char('#')) +
                         QString(kBarWidth - done, QLatin1Char('.')) + QStringLiteral("] ") + step;
    if (line == shown)
        return;
    redraw(line);
    shown = line;
}

void ProgressBar::tell(double fraction)
{
    const int done = std::clamp(int(fraction * 100), 0, 100);
    if (done <= told)
        return;
    told = done;
    std::fputs(("progress " + QByteArray::number(done / 100.0) + '\n').constData(),
               library_messages::ownErrorStream());
    std::fflush(library_messages::ownErrorStream());
}

void ProgressBar::clear()
{
    if (shown.isEmpty())
        return;
    redraw({});
    shown.clear();
}
