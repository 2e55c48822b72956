// Loading a model of 100,000 triangles: as text, in bytes a second; in the binary format, beside what it takes to copy
// the file in memory; and the most heap that each takes, as a multiple of what it returns.

#include "BenchStage.h"

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <new>
#include <string>
#include <vector>

namespace
{

std::size_t s_heap = 0;
std::size_t s_mostHeap = 0;

std::string s_textPath;
std::string s_binaryPath;

/// A sheet of hills, each of whose squares is two triangles, with a normal for each of its points.
std::string Sheet()
{
    constexpr int side = 224;
    std::string text = "g sheet\n";
    char line[128];
    const auto add = [&](auto... a_arguments)
    {
        std::snprintf(line, sizeof(line), a_arguments...);
        text += line;
    };
    for (int y = 0; y <= side; ++y)
    {
        for (int x = 0; x <= side; ++x)
        {
            const double u = double{1} * x / side;
            const double v = double{1} * y / side;
            add("v %f %f %f\n", 20 * u - 10, 20 * v - 10, std::sin(9 * u) * std::cos(7 * v));
            add("vt %f %f\n", u, v);
            add("vn %f %f %f\n", std::cos(9 * u), std::sin(7 * v), 1.0);
        }
    }
    for (int y = 0; y < side; ++y)
    {
        for (int x = 0; x < side; ++x)
        {
            const int corners[] = {y * (side + 1) + x + 1, y * (side + 1) + x + 2, (y + 1) * (side + 1) + x + 2,
                                   (y + 1) * (side + 1) + x + 1};
            text += 'f';
            for (const int corner : corners)
            {
                add(" %d/%d/%d", corner, corner, corner);
            }
            text += '\n';
        }
    }
    return text;
}

double ResultSize(const Gfx::GeometryPtrList& a_groups)
{
    std::size_t size = 0;
    for (const auto& group : a_groups)
    {
        size += group->vertices.size() * sizeof(group->vertices[0]);
        size += group->texCoords.size() * sizeof(group->texCoords[0]);
    }
    return static_cast<double>(size);
}

template <typename Loader>
void Load(benchmark::State& a_state, const std::string& a_path)
{
    std::size_t triangles = 0;
    double heap = 0;
    for (auto _ : a_state)
    {
        const std::size_t before = s_heap;
        s_mostHeap = s_heap;
        const Gfx::GeometryPtrList groups = Loader::LoadObjectFile(a_path);
        a_state.PauseTiming();
        triangles = Gfx::Summarise(groups).triangles;
        heap = static_cast<double>(s_mostHeap - before) / ResultSize(groups);
        a_state.ResumeTiming();
    }
    Bench::Require(triangles > 100'000, "the model isn't there");
    a_state.SetBytesProcessed(a_state.iterations() * static_cast<std::int64_t>(std::filesystem::file_size(a_path)));
    a_state.counters["HeapOfResult"] = heap;
}

void LoadText(benchmark::State& a_state)
{
    Load<Gfx::Managers::CObjectLoader>(a_state, s_textPath);
}

void LoadBinary(benchmark::State& a_state)
{
    Load<Gfx::Managers::CBObjectLoader>(a_state, s_binaryPath);
}

void CopyBinaryInMemory(benchmark::State& a_state)
{
    std::ifstream file(s_binaryPath, std::ios::binary);
    const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
    for (auto _ : a_state)
    {
        std::vector<char> copy = bytes;
        benchmark::DoNotOptimize(copy.data());
    }
    a_state.SetBytesProcessed(a_state.iterations() * static_cast<std::int64_t>(bytes.size()));
}

BENCHMARK(LoadText)->Unit(benchmark::kMillisecond);
BENCHMARK(LoadBinary)->Unit(benchmark::kMillisecond);
BENCHMARK(CopyBinaryInMemory)->Unit(benchmark::kMillisecond);

} // namespace

// Inlined, they would look to the compiler like a malloc that meets a delete.
[[gnu::noinline]] void* operator new(std::size_t a_size)
{
    void* const memory = std::malloc(a_size);
    if (memory == nullptr)
    {
        throw std::bad_alloc();
    }
    s_heap += malloc_usable_size(memory);
    s_mostHeap = std::max(s_mostHeap, s_heap);
    return memory;
}

[[gnu::noinline]] void operator delete(void* a_memory) noexcept
{
    s_heap -= malloc_usable_size(a_memory);
    std::free(a_memory);
}

[[gnu::noinline]] void operator delete(void* a_memory, std::size_t) noexcept
{
    operator delete(a_memory);
}

int main(int a_argc, char** a_argv)
{
    benchmark::Initialize(&a_argc, a_argv);
    std::string folder = (std::filesystem::temp_directory_path() / "model-bench-XXXXXX").string();
    Bench::Require(mkdtemp(folder.data()) != nullptr, "no folder for the models");
    s_textPath = folder + "/sheet.obj";
    s_binaryPath = folder + "/sheet.bobj";
    std::ofstream(s_textPath) << Sheet();
    Bench::Require(Gfx::WriteBObjectFile(s_binaryPath, Gfx::Managers::CObjectLoader::LoadObjectFile(s_textPath)),
                   "the binary model can't be written");
    // The binary loader tells there what it has read.
    Bench::Require(std::freopen("/dev/null", "w", stderr) != nullptr, "no null device");
    benchmark::RunSpecifiedBenchmarks();
    std::filesystem::remove_all(folder);
    return 0;
}
