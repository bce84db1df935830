// measure_process RUNS COMMAND...: runs the command so many times after one warm-up, its output
// thrown away, and prints the median wall-clock time, the largest peak memory and the median
// processor time, children's included, which other programs on the machine disturb less.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

struct Measurement
{
    double milliseconds;
    double peakMebibytes;
    double processorMilliseconds;
};

void runChild(char **command)
{
    const int nothing = open("/dev/null", O_WRONLY);
    dup2(nothing, STDOUT_FILENO);
    dup2(nothing, STDERR_FILENO);
    execvp(command[0], command);
    _exit(127);
}

double milliseconds(const timeval &time)
{
    return static_cast<double>(time.tv_sec) * 1000 + static_cast<double>(time.tv_usec) / 1000;
}

double median(std::vector<double> numbers)
{
    std::sort(numbers.begin(), numbers.end());
    return numbers[numbers.size() / 2];
}

Measurement measure(char **command)
{
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = fork();
    if (child == 0)
        runChild(command);
    int status = 0;
    rusage usage = {};
    if (child < 0 || wait4(child, &status, 0, &usage) < 0 || status != 0) {
        std::fprintf(stderr, "measure_process: %s failed\n", command[0]);
        std::exit(1);
    }
    const std::chrono::duration<double, std::milli> elapsed =
        std::chrono::steady_clock::now() - start;
    return {elapsed.count(), static_cast<double>(usage.ru_maxrss) / 1024,
            milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime)};
}

} // namespace

int main(int argc, char **argv)
{
    const int runs = argc > 2 ? std::atoi(argv[1]) : 0;
    if (runs < 1) {
        std::fprintf(stderr, "usage: measure_process RUNS COMMAND...\n");
        return 64;
    }
    measure(argv + 2);
    std::vector<double> times;
    std::vector<double> processorTimes;
    double peak = 0;
    for (int i = 0; i < runs; ++i) {
        const Measurement run = measure(argv + 2);
        times.push_back(run.milliseconds);
        processorTimes.push_back(run.processorMilliseconds);
        peak = std::max(peak, run.peakMebibytes);
    }
    std::printf("%.1f %.1f %.1f\n", median(times), peak, median(processorTimes));
    return 0;
}
