#include "Commands.h"

#include <Gfx/Gfx.h>

#include <cstdio>
#include <filesystem>
#include <string>
#include <system_error>

namespace Tool
{

namespace
{

using Gfx::Managers::CBObjectLoader;
using Gfx::Managers::CObjectLoader;

/// As the library of models decides it.
bool IsBinary(const std::string& a_path)
{
    return std::filesystem::path(a_path).filename().string().find(".bobj") != std::string::npos;
}

} // namespace

int Model(const SOptions& a_options)
{
    const std::string& file = a_options.file;
    if (!a_options.output.empty() && !IsBinary(a_options.output))
    {
        std::fprintf(stderr, "gfx: %s would be a binary model, and needs .bobj in its name\n",
                     a_options.output.c_str());
        return eeUsage;
    }
    const bool isBinary = IsBinary(file);
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error))
    {
        std::fprintf(stderr, "gfx: %s is no file\n", file.c_str());
        return eeFailure;
    }
    if (const std::string problem = isBinary ? "" : CObjectLoader::FirstBadFace(file); !problem.empty())
    {
        std::fprintf(stderr, "%s:%s\n", file.c_str(), problem.c_str());
        return eeFailure;
    }
    const Gfx::GeometryPtrList groups =
        isBinary ? CBObjectLoader::LoadObjectFile(file) : CObjectLoader::LoadObjectFile(file);
    if (groups.empty())
    {
        std::fprintf(stderr, "gfx: there is no model in %s\n", file.c_str());
        return eeFailure;
    }
    if (!a_options.output.empty())
    {
        return Gfx::WriteBObjectFile(a_options.output, groups) ? eeSuccess : eeFailure;
    }
    const Gfx::SGeometrySummary summary = Gfx::Summarise(groups);
    std::printf("groups %zu\ntriangles %zu\nextent %g\n", summary.groups, summary.triangles,
                static_cast<double>(summary.extent));
    return std::fflush(stdout) == 0 ? eeSuccess : eeFailure;
}

} // namespace Tool
