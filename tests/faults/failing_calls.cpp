// Loaded before the C library. Of the calls that make a file or load what makes its digest, the one whose
// number is FAULT_CALL fails with the error FAULT_ERROR; it kills the program where that is 0, and does
// nothing where it is -1. The standard error names it. With FAULT_NAMED every new file needs a name; with
// FAULT_RIVAL another save clears the first one before it is locked.

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <utility>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

int number(const char* variable)
{
    const char* const text = std::getenv(variable);
    return text ? std::atoi(text) : 0;
}

bool isItsTurn(const char* name)
{
    static std::atomic<int> calls = 0;
    if (++calls != number("FAULT_CALL"))
        return false;
    std::fputs(name, stderr);
    errno = number("FAULT_ERROR");
    return errno != 0 || std::raise(SIGKILL) != 0;
}

} // namespace

// A type of parameters stands in its own parentheses, and the C library's names of them are reserved.
// NOLINTBEGIN(bugprone-macro-parentheses, readability-inconsistent-declaration-parameter-name)
#define REAL(result, name, parameters) reinterpret_cast<result(*) parameters>(dlsym(RTLD_NEXT, #name))
#define FAILING(result, failed, name, parameters, ...)                                                       \
    __attribute__((visibility("default"))) result name parameters                                            \
    {                                                                                                        \
        return isItsTurn(#name) ? failed : REAL(result, name, parameters)(__VA_ARGS__);                      \
    }

extern "C" {
FAILING(ssize_t, errno == -1 ? 0 : -1, write, (int file, const void* bytes, size_t size), file, bytes, size)
FAILING(int, -1, fsync, (int file), file)
FAILING(int, -1, linkat, (int from, const char* old, int to, const char* name, int flags), from, old, to,
    name, flags)
FAILING(int, -1, rename, (const char* old, const char* name), old, name)
FAILING(void*, nullptr, dlopen, (const char* library, int mode), library, mode)

__attribute__((visibility("default"))) int flock(int file, int operation)
{
    static bool hasRival = std::getenv("FAULT_RIVAL") != nullptr;
    if (std::exchange(hasRival, false))
        fs::remove(fs::read_symlink("/proc/self/fd/" + std::to_string(file)));
    return REAL(int, flock, (int, int))(file, operation);
}

__attribute__((visibility("default"))) int open(const char* name, int flags, ...)
{
    const bool isUnnamed = (flags & O_TMPFILE) == O_TMPFILE;
    if (isUnnamed && std::getenv("FAULT_NAMED"))
        return errno = EOPNOTSUPP, -1;
    const bool isNew = isUnnamed || (flags & O_CREAT) != 0;
    return isNew && isItsTurn("open") ? -1 : REAL(int, open, (const char*, int, ...))(name, flags, 0666);
}
}
// NOLINTEND(bugprone-macro-parentheses, readability-inconsistent-declaration-parameter-name)
