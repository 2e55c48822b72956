// All benchmarks run on a stage that is shown.

#include "BenchStage.h"

#include <benchmark/benchmark.h>

int main(int a_argc, char** a_argv)
{
    benchmark::Initialize(&a_argc, a_argv);
    Bench::SetUpStage();
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
