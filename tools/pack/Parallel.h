#pragma once

#include <atomic>
#include <thread>
#include <vector>

/// Calls `work(index)` once for each index below `count`, on as many threads as the machine has cores, and
/// returns when all is done.
template <class Work>
void inParallel(std::size_t count, const Work& work)
{
    std::atomic<std::size_t> next = 0;
    const auto workOn = [&] {
        for (std::size_t index = next++; index < count; index = next++)
            work(index);
    };
    const auto helpers = std::min<std::size_t>(count, std::max(1U, std::thread::hardware_concurrency()));
    std::vector<std::jthread> threads;
    for (std::size_t index = 1; index < helpers; ++index)
        threads.emplace_back(workOn);
    workOn();
}
