#include "app/SelfTest.h"
#include "app/window/LoadFault.h"
#include "app/window/WindowModule.h"
#include "platform/BundleLayout.h"
#include "platform/posix/PosixBundles.h"
#include "platform/posix/PosixFiles.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <string_view>

#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

namespace {

/// Whatever is opened next would else take the place of a standard stream that is closed, and get what is
/// written there. Writing keeps failing.
void occupyStandardStreams()
{
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(stream, F_GETFD) < 0)
            open("/dev/null", O_RDONLY);
    }
}

[[noreturn]] void selfTest(const Path& store)
{
    // Its report is written; tidying up the libraries would take as long as checking an archive.
    std::_Exit(runSelfTest(store, PosixFiles()));
}

int window(const Path& store, int argc, char* argv[])
{
    const Path module = bundle_layout::frameworks(store) / windowModuleFile;
    void* const library = dlopen(module.c_str(), RTLD_LAZY | RTLD_LOCAL);
    auto* const run = library ? reinterpret_cast<RunWindow*>(dlsym(library, runWindowSymbol)) : nullptr;
    if (!run) {
        std::fputs(loadFault(dlerror()).c_str(), stderr);
        return 1;
    }
    return run(argc, argv);
}

} // namespace

int main(int argc, char* argv[])
{
    using namespace std::string_view_literals;
    occupyStandardStreams();
    const Path store = PosixBundles().mainBundle();
    if (std::ranges::count(std::span(argv, std::size_t(argc)), "--self-test"sv) > 0)
        selfTest(store);
    return window(store, argc, argv);
}
