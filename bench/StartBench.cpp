// Cold start: from the start of a process to its first complete frame, and the memory that it has needed by then, of
// the tool with the demo's main screen, beside a bare program with a window.

#include <benchmark/benchmark.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <vector>

namespace
{

struct SRun
{
    double seconds = 0;
    double peakMegabytes = 0;
};

/// a_arguments end with a null.
SRun Run(const std::vector<const char*>& a_arguments)
{
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = vfork();
    if (child == 0)
    {
        execv(a_arguments.front(), const_cast<char**>(a_arguments.data()));
        _exit(127);
    }
    int status = 0;
    rusage usage{};
    wait4(child, &status, 0, &usage);
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
    return status == 0 ? SRun{time.count(), static_cast<double>(usage.ru_maxrss) / 1024} : SRun{};
}

double Median(std::vector<double> a_values)
{
    std::sort(a_values.begin(), a_values.end());
    return a_values.empty() ? 0 : a_values[a_values.size() / 2];
}

void FirstFrame(benchmark::State& a_state)
{
    // A warm cache for both, and alternating runs: the machine's moods hit them alike.
    const std::vector<const char*> bare{GFX_BARE_WINDOW, nullptr};
    const std::vector<const char*> view{GFX_TOOL, "view", "--once", GFX_DEMO_DATA, nullptr};
    Run(bare);
    Run(view);
    std::vector<double> bareTimes;
    std::vector<double> viewTimes;
    double bareMemory = 0;
    double viewMemory = 0;
    for (auto _ : a_state)
    {
        const SRun bareRun = Run(bare);
        const SRun viewRun = Run(view);
        if (bareRun.seconds == 0 || viewRun.seconds == 0)
        {
            a_state.SkipWithError("a program has failed");
            break;
        }
        bareTimes.push_back(bareRun.seconds);
        viewTimes.push_back(viewRun.seconds);
        bareMemory = bareRun.peakMegabytes;
        viewMemory = viewRun.peakMegabytes;
        a_state.SetIterationTime(viewRun.seconds);
    }
    a_state.counters["BareMs"] = Median(bareTimes) * 1000;
    a_state.counters["ViewMs"] = Median(viewTimes) * 1000;
    a_state.counters["TimesBare"] = bareTimes.empty() ? 0 : Median(viewTimes) / Median(bareTimes);
    a_state.counters["BareMB"] = bareMemory;
    a_state.counters["ViewMB"] = viewMemory;
}
BENCHMARK(FirstFrame)->UseManualTime()->Iterations(15)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
