#include "pack/findings/Parallel.h"

#include <algorithm>
#include <atomic>
#include <future>
#include <thread>

Findings findInParallel(std::size_t count, const std::function<void(std::size_t, Findings&)>& work)
{
    std::vector<Findings> found(count);
    std::atomic<std::size_t> next = 0;
    const auto workOn = [&] {
        for (std::size_t index = next++; index < count; index = next++)
            work(index, found[index]);
    };
    std::vector<std::future<void>> threads(std::max(1U, std::thread::hardware_concurrency()));
    for (std::future<void>& thread : threads)
        thread = std::async(std::launch::async | std::launch::deferred, workOn);
    for (std::future<void>& thread : threads)
        thread.get();
    Findings all;
    for (const Findings& some : found)
        all.insert(all.end(), some.begin(), some.end());
    return all;
}
