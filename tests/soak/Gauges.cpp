// Cogl asks the window-system library for OpenGL's functions, and that it asks GLib's module loader for; so the
// loader's look-up is replaced in this program by one that hands out counting functions. The toolkit itself is linked
// with them, and finds those of this program first.

#include "Gauges.h"

#include <GL/gl.h>
#include <dlfcn.h>
#include <gmodule.h>
#include <malloc.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <iterator>
#include <span>

namespace
{

using Function = void (*)();
using Finder = Function (*)(const GLubyte*);

Finder s_finder = nullptr;
long s_textures = 0;

Function Counting(const char* a_name)
{
    return std::strcmp(a_name, "glGenTextures") == 0      ? reinterpret_cast<Function>(glGenTextures)
           : std::strcmp(a_name, "glDeleteTextures") == 0 ? reinterpret_cast<Function>(glDeleteTextures)
                                                          : nullptr;
}

Function Find(const GLubyte* a_name)
{
    const Function counting = Counting(reinterpret_cast<const char*>(a_name));
    return counting != nullptr ? counting : s_finder(a_name);
}

template <typename FunctionT>
FunctionT* Original(const char* a_name)
{
    return reinterpret_cast<FunctionT*>(dlsym(RTLD_NEXT, a_name));
}

} // namespace

extern "C" void glGenTextures(GLsizei a_count, GLuint* a_names)
{
    static auto* const s_original = Original<decltype(glGenTextures)>("glGenTextures");
    s_original(a_count, a_names);
    s_textures += a_count;
}

extern "C" void glDeleteTextures(GLsizei a_count, const GLuint* a_names)
{
    static auto* const s_original = Original<decltype(glDeleteTextures)>("glDeleteTextures");
    s_original(a_count, a_names);
    s_textures -= std::count_if(a_names, a_names + a_count, [](GLuint a_name) { return a_name != 0; });
}

extern "C" gboolean g_module_symbol(GModule* a_module, const gchar* a_name, gpointer* a_symbol)
{
    static auto* const s_original = Original<decltype(g_module_symbol)>("g_module_symbol");
    const gboolean found = s_original(a_module, a_name, a_symbol);
    if (found != FALSE && std::strncmp(a_name, "glXGetProcAddress", std::strlen("glXGetProcAddress")) == 0)
    {
        s_finder = reinterpret_cast<Finder>(*a_symbol);
        *a_symbol = reinterpret_cast<gpointer>(Find);
    }
    else if (const Function counting = found != FALSE ? Counting(a_name) : nullptr)
    {
        *a_symbol = reinterpret_cast<gpointer>(counting);
    }
    return found;
}

namespace Soak
{

namespace
{

/// Below which there is nothing to say of a trend.
constexpr std::size_t k_fewest = 12;
/// For how long caches still fill, as that of glyphs with what is typed; until then the limits are wider.
constexpr int k_youngRounds = 200;
constexpr double k_youth = 4;

struct SLine
{
    double growth;
    double error;
};

SLine Fit(std::span<const double> a_values)
{
    const auto count = static_cast<double>(a_values.size());
    const double middle = (count - 1) / 2;
    double mean = 0;
    for (const double value : a_values)
    {
        mean += value / count;
    }
    double covariance = 0;
    double variance = 0;
    for (std::size_t i = 0; i < a_values.size(); ++i)
    {
        const double x = static_cast<double>(i) - middle;
        covariance += x * (a_values[i] - mean);
        variance += x * x;
    }
    const double growth = covariance / variance;
    double residue = 0;
    for (std::size_t i = 0; i < a_values.size(); ++i)
    {
        residue += std::pow(a_values[i] - mean - growth * (static_cast<double>(i) - middle), 2);
    }
    return {growth, std::sqrt(residue / (count - 2) / variance)};
}

/// From one value to the next, in the middle: a cache that fills late makes a few large steps.
double MedianStep(std::span<const double> a_values)
{
    std::vector<double> steps;
    for (std::size_t i = 1; i < a_values.size(); ++i)
    {
        steps.push_back(a_values[i] - a_values[i - 1]);
    }
    const auto middle = steps.begin() + static_cast<std::ptrdiff_t>(steps.size() / 2);
    std::nth_element(steps.begin(), middle, steps.end());
    return *middle;
}

std::span<const double> WithoutStart(const std::vector<double>& a_values)
{
    return std::span(a_values).subspan(a_values.size() / 3);
}

} // namespace

double WholeHeap()
{
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks) + static_cast<double>(info.hblkhd);
}

int Descriptors()
{
    return static_cast<int>(
        std::distance(std::filesystem::directory_iterator("/proc/self/fd"), std::filesystem::directory_iterator()));
}

long Textures()
{
    return s_textures;
}

void CTrend::Add(double a_value)
{
    if (m_rounds++ % k_roundsPerValue == 0)
    {
        m_values.push_back(a_value);
    }
    m_values.back() = std::min(m_values.back(), a_value);
}

bool CTrend::Growth(double& a_growth, double& a_error) const
{
    const std::span<const double> values = WithoutStart(m_values);
    if (values.size() < k_fewest)
    {
        return false;
    }
    const SLine line = Fit(values);
    a_growth = line.growth / k_roundsPerValue;
    a_error = line.error / k_roundsPerValue;
    return true;
}

double CTrend::Limit() const
{
    return m_rounds < k_youngRounds ? k_youth * m_limit : m_limit;
}

std::string CTrend::Fault() const
{
    double growth = 0;
    double error = 0;
    if (!Growth(growth, error) || growth - 2 * error <= Limit())
    {
        return {};
    }
    const bool isSteady = MedianStep(WithoutStart(m_values)) > Limit() * k_roundsPerValue / 2;
    return isSteady ? "growing: " + Summary() : "";
}

std::string CTrend::Summary() const
{
    std::string text = m_name;
    char numbers[160];
    if (!m_values.empty())
    {
        std::snprintf(numbers, sizeof numbers, ": at first %.0f, at last %.0f", m_values.front(), m_values.back());
        text += numbers;
    }
    double growth = 0;
    double error = 0;
    if (Growth(growth, error))
    {
        std::snprintf(numbers, sizeof numbers, "; %+.3f (+- %.3f) a round, limit %.3f", growth, 2 * error, Limit());
        text += numbers;
    }
    return text;
}

} // namespace Soak
