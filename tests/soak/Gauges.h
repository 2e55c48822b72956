#pragma once

#include <string>
#include <vector>

namespace Soak
{

/// What is allocated, without the OpenGL driver's share.
struct SHeap
{
    long bytes = 0;
    long blocks = 0;
};

/// Begins to count, from 0; the driver has to be loaded. What was allocated before, and is freed later, doesn't count.
void CountHeap();
SHeap Heap();

/// In bytes, by the C library's own books: the driver's share, too, and what was handed out in one piece.
double WholeHeap();

/// Open file descriptors of this process.
int Descriptors();

/// Textures that OpenGL has been asked for and not been asked to delete.
long Textures();

/// As many as there are from one rebuild of the interface to the next, which takes hundreds of blocks out.
constexpr int k_roundsPerValue = 5;

/// A number that is read once in each round, and shouldn't grow. Of k_roundsPerValue the least counts: now and then
/// what is to go is still held by something when the round ends, while what is lost is lost in all of them.
class CTrend
{
public:
    CTrend(std::string a_name, double a_limit) : m_name(std::move(a_name)), m_limit(a_limit) {}

    void Add(double a_value);

    /// How much it grows in a round, by the least squares of all but the first rounds, in which caches fill; and how
    /// much of that can be chance. False if there are too few rounds to tell.
    [[nodiscard]] bool Growth(double& a_growth, double& a_error) const;

    /// Empty, or what is wrong: it grows by more than the limit even if chance is left out, and in most of the rounds
    /// that count, so that one more cache which fills late isn't taken for a leak.
    [[nodiscard]] std::string Fault() const;

    /// Its first and last values and its growth.
    [[nodiscard]] std::string Summary() const;

private:
    [[nodiscard]] double Limit() const;

    std::string m_name;
    double m_limit;
    int m_rounds = 0;
    std::vector<double> m_values;
};

} // namespace Soak
