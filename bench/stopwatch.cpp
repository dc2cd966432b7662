// stopwatch COMMAND…: runs it with its report thrown away, and prints its milliseconds, its milliseconds of
// processor time and the most memory, in KiB, that it held.

#include <sys/resource.h>
#include <sys/wait.h>

#include <chrono>
#include <cstdio>

#include <fcntl.h>
#include <unistd.h>

namespace {

double milliseconds(timeval time)
{
    return double(time.tv_sec) * 1e3 + double(time.tv_usec) / 1e3;
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc < 2)
        return 2;
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = fork();
    if (child == 0) {
        dup2(open("/dev/null", O_WRONLY), STDOUT_FILENO);
        execvp(argv[1], argv + 1);
        _exit(127);
    }
    int status = 0;
    rusage used{};
    wait4(child, &status, 0, &used);
    const std::chrono::duration<double, std::milli> passed = std::chrono::steady_clock::now() - start;
    std::printf("%.3f %.3f %ld\n", passed.count(), milliseconds(used.ru_utime) + milliseconds(used.ru_stime),
        used.ru_maxrss);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? 0 : 1;
}
