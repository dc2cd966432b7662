#include "app/SelfTest.h"
#include "app/window/WindowModule.h"
#include "platform/Platform.h"
#include "platform/desktop/DesktopBundles.h"
#include "platform/desktop/DesktopFileManager.h"
#include "platform/desktop/DesktopFiles.h"

#include <algorithm>
#include <cstdio>
#include <span>
#include <string_view>

#include <dlfcn.h>

namespace {

int selfTest(DesktopBundles& bundles)
{
    DesktopFiles files;
    DesktopFileManager fileManager;
    const PlatformScope platform({.bundles = &bundles, .files = &files, .fileManager = &fileManager});
    return runSelfTest();
}

int window(const Bundles& bundles, int argc, char* argv[])
{
    const Path module = bundles.mainResources().parent_path() / "Frameworks" / windowModuleFile;
    void* const library = dlopen(module.c_str(), RTLD_LAZY | RTLD_LOCAL);
    auto* const run = library ? reinterpret_cast<RunWindow*>(dlsym(library, runWindowSymbol)) : nullptr;
    if (!run) {
        std::fprintf(stderr, "PloviStore: the window cannot be loaded: %s\n", dlerror());
        return 1;
    }
    return run(argc, argv);
}

} // namespace

int main(int argc, char* argv[])
{
    using namespace std::string_view_literals;
    DesktopBundles bundles;
    if (std::ranges::count(std::span(argv, std::size_t(argc)), "--self-test"sv) > 0)
        return selfTest(bundles);
    return window(bundles, argc, argv);
}
