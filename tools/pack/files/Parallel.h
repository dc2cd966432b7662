#pragma once

#include <atomic>
#include <future>
#include <thread>
#include <vector>

/// Calls `work(index)` once for each index below `count`, on as many threads as the machine has cores, and
/// returns when all is done. Where no thread can be made there are fewer. What `work` throws is thrown here.
template <class Work>
void inParallel(std::size_t count, const Work& work)
{
    std::atomic<std::size_t> next = 0;
    const auto workOn = [&] {
        for (std::size_t index = next++; index < count; index = next++)
            work(index);
    };
    const auto helpers = std::min<std::size_t>(count, std::max(1U, std::thread::hardware_concurrency()));
    std::vector<std::future<void>> threads;
    for (std::size_t index = 1; index < helpers; ++index)
        threads.push_back(std::async(std::launch::async | std::launch::deferred, workOn));
    workOn();
    for (std::future<void>& thread : threads)
        thread.get();
}
