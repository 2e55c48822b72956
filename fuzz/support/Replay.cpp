// Runs a target on files, and on the files in folders: its seeds, and what was found before.

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

/// Where there is a sanitizer: no input is worth a block of this size.
extern "C" const char* __asan_default_options()
{
    return "max_allocation_size_mb=1024";
}

extern "C" int LLVMFuzzerInitialize(int* a_argc, char*** a_argv);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* a_data, std::size_t a_size);

namespace
{

void Replay(const std::filesystem::path& a_path)
{
    std::ifstream file(a_path, std::ios::binary);
    const std::string input{std::istreambuf_iterator<char>(file), {}};
    // The one that ends the process is the last that is named.
    std::printf("%s\n", a_path.c_str());
    std::fflush(stdout);
    // A block of exactly its size, so that a sanitizer sees what is read beyond it.
    const std::vector<std::uint8_t> bytes(input.begin(), input.end());
    LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
}

} // namespace

int main(int a_argc, char** a_argv)
{
    LLVMFuzzerInitialize(&a_argc, &a_argv);
    std::size_t count = 0;
    for (int i = 1; i < a_argc; ++i)
    {
        std::vector<std::filesystem::path> paths;
        if (std::filesystem::is_directory(a_argv[i]))
        {
            for (const auto& entry : std::filesystem::directory_iterator(a_argv[i]))
            {
                paths.push_back(entry.path());
            }
        }
        else if (std::filesystem::is_regular_file(a_argv[i]))
        {
            paths.emplace_back(a_argv[i]);
        }
        for (const std::filesystem::path& path : paths)
        {
            Replay(path);
            ++count;
        }
    }
    std::printf("%zu inputs\n", count);
    return count > 0 ? 0 : 1;
}
