// Converts one camera raw file for VeskRaw, see ConverterAnswer.h. Whatever ends this program, its
// caller goes on.

#include "ConverterAnswer.h"
#include "libraw_conversion.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <new>

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>
#if defined(__linux__)
#include <sys/prctl.h>
#endif

namespace {

/// Set by the first to answer: the conversion, or what ends the program before.
std::atomic_flag isAnswered = ATOMIC_FLAG_INIT;

bool write(const void *bytes, std::size_t count)
{
    const auto *at = static_cast<const char *>(bytes);
    while (count > 0) {
        const ssize_t written = ::write(STDOUT_FILENO, at, count);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        at += written;
        count -= std::size_t(written);
    }
    return true;
}

void answerFailure(raw::Failure failure)
{
    if (isAnswered.test_and_set())
        return;
    ConverterAnswer answer;
    answer.failure = static_cast<std::uint32_t>(failure);
    write(&answer, sizeof answer);
}

/// Exceptions of LibRaw's threads end here.
[[noreturn]] void onUncaughtException()
{
    answerFailure(raw::failureInFlight());
    _exit(EXIT_SUCCESS);
}

/// The runtime of LibRaw's threads ends the program where it cannot start one.
void onExit()
{
    answerFailure(raw::Failure::NoMemory);
}

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool kIsSanitized = true;
#else
constexpr bool kIsSanitized = false;
#endif

/// A sanitizer maps far more than any limit, and its reports are for people.
void limitMemory(rlim_t bytes)
{
    const rlimit noCore = {0, 0};
    ::setrlimit(RLIMIT_CORE, &noCore);
    rlimit limit = {};
    if (kIsSanitized || bytes == 0 || ::getrlimit(RLIMIT_AS, &limit) != 0)
        return;
    limit.rlim_cur = std::min(limit.rlim_cur, bytes);
    ::setrlimit(RLIMIT_AS, &limit);
}

/// What the runtime of LibRaw's threads says before it gives up is answered in its place.
void silence()
{
    const int nowhere = kIsSanitized ? -1 : ::open("/dev/null", O_WRONLY);
    if (nowhere >= 0)
        ::dup2(nowhere, STDERR_FILENO);
}

void endWithCaller()
{
#if defined(__linux__)
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
#endif
}

bool send(const raw::Conversion &conversion)
{
    if (isAnswered.test_and_set())
        return false;
    ConverterAnswer answer;
    answer.failure = static_cast<std::uint32_t>(conversion.failure);
    answer.libraryError = conversion.libraryError;
    answer.width = conversion.width;
    answer.height = conversion.height;
    if (!write(&answer, sizeof answer))
        return false;
    constexpr int kRowsAtOnce = 16;
    const std::size_t rowBytes =
        std::size_t(conversion.width) * std::size_t(conversion.bitsPerChannel / 2);
    std::vector<unsigned char> rows(rowBytes * kRowsAtOnce);
    for (int y = 0; y < conversion.height; y += kRowsAtOnce) {
        const int count = std::min(kRowsAtOnce, conversion.height - y);
        for (int i = 0; i < count; ++i)
            raw::writeRow(conversion, y + i, rows.data() + rowBytes * std::size_t(i));
        if (!write(rows.data(), rowBytes * std::size_t(count)))
            return false;
    }
    return true;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != ConverterArgumentCount)
        return EXIT_FAILURE;
    const auto number = [argv](int index) { return std::atoll(argv[index]); };
    raw::Options options;
    options.pixelLimit = number(PixelLimitArgument);
    options.quick = number(QuickArgument) != 0;
    options.bitsPerChannel = int(number(BitsArgument));
    options.colourSpace = static_cast<raw::ColourSpace>(number(ColourSpaceArgument));
    options.isLinear = number(LinearArgument) != 0;

    silence();
    endWithCaller();
    std::set_terminate(&onUncaughtException);
    std::atexit(&onExit);
    limitMemory(rlim_t(number(MemoryLimitArgument)));
    const bool isSent = send(raw::convert(argv[PathArgument], options));
    _exit(isSent ? EXIT_SUCCESS : EXIT_FAILURE);
}
