#pragma once

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <string>

namespace bench {

/// A memory figure of this process in kilobytes, by its name in /proc/self/status: "VmHWM" the peak, "VmRSS"
/// now.
inline long MemoryFigure(const std::string& name) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with(name + ":")) {
            return std::strtol(line.c_str() + name.size() + 1, nullptr, 10);
        }
    }
    return 0;
}

/// Runs the work and tells as JSON its time, the processor's time for it, the peak memory of the process
/// while it ran, and by how much that is more than before.
template <class Work>
void TellMeasures(Work work) {
    std::ofstream("/proc/self/clear_refs") << '5'; // starts the count of the peak anew
    const long before = MemoryFigure("VmRSS");
    const std::clock_t clock = std::clock();
    const auto start = std::chrono::steady_clock::now();
    work();
    const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - start;
    const double processor = 1000.0 * static_cast<double>(std::clock() - clock) / CLOCKS_PER_SEC;
    const long peak = MemoryFigure("VmHWM");
    std::printf("{\"ms\": %.2f, \"processor_ms\": %.2f, \"peak_kb\": %ld, \"growth_kb\": %ld}\n",
                took.count(), processor, peak, peak - before);
}

} // namespace bench
