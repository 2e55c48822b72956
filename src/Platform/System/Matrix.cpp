#include "Platform/System/Matrix.h"

#include <Eigen/Core>
#include <Eigen/LU>

#include <stdexcept>

namespace
{

using Dense = Eigen::Matrix<double, Eigen::Dynamic, Eigen::Dynamic, Eigen::RowMajor>;

/// Where a pivot should be 0, rounding leaves up to 1e-15. Points whose coordinates have 16 bits leave more than 1e-11
/// in the matrix of their fit, however near to one line or to each other they lie.
constexpr double k_smallestPivot = 1e-13;

std::size_t Size(int a_rows, int a_columns)
{
    if (a_rows < 1 || a_columns < 1)
    {
        throw std::range_error("a matrix has one row and one column at least");
    }
    return static_cast<std::size_t>(a_rows) * static_cast<std::size_t>(a_columns);
}

Eigen::Map<const Dense> View(const std::vector<double>& a_elements, int a_rows, int a_columns)
{
    return {a_elements.data(), a_rows, a_columns};
}

Eigen::Map<Dense> View(std::vector<double>& a_elements, int a_rows, int a_columns)
{
    return {a_elements.data(), a_rows, a_columns};
}

} // namespace

CMatrix::CMatrix(int a_rows, int a_columns) : m_rows(a_rows), m_columns(a_columns), m_elements(Size(a_rows, a_columns))
{
}

double& CMatrix::operator()(int a_row, int a_column)
{
    return m_elements[Index(a_row, a_column)];
}

double CMatrix::operator()(int a_row, int a_column) const
{
    return m_elements[Index(a_row, a_column)];
}

CMatrix CMatrix::Transpose() const
{
    CMatrix result(m_columns, m_rows);
    View(result.m_elements, m_columns, m_rows) = View(m_elements, m_rows, m_columns).transpose();
    return result;
}

CMatrix CMatrix::operator*(const CMatrix& a_right) const
{
    if (m_columns != a_right.m_rows)
    {
        throw std::range_error("the sizes of the matrices don't match");
    }
    CMatrix result(m_rows, a_right.m_columns);
    View(result.m_elements, m_rows, a_right.m_columns).noalias() =
        View(m_elements, m_rows, m_columns) * View(a_right.m_elements, a_right.m_rows, a_right.m_columns);
    return result;
}

CMatrix CMatrix::Inverse() const
{
    if (m_rows != m_columns)
    {
        throw std::range_error("the matrix isn't square");
    }
    const auto singular = [] { return std::range_error("the matrix is singular"); };
    Dense scaled = View(m_elements, m_rows, m_columns);
    const Eigen::VectorXd rowScale = scaled.rowwise().lpNorm<Eigen::Infinity>().cwiseInverse();
    scaled = rowScale.asDiagonal() * scaled;
    const Eigen::VectorXd columnScale = scaled.colwise().lpNorm<Eigen::Infinity>().transpose().cwiseInverse();
    scaled = scaled * columnScale.asDiagonal();
    if (!scaled.allFinite())
    {
        throw singular();
    }
    Eigen::FullPivLU<Dense> factors(scaled);
    factors.setThreshold(k_smallestPivot);
    if (!factors.isInvertible())
    {
        throw singular();
    }
    CMatrix result(m_rows, m_columns);
    auto inverse = View(result.m_elements, m_rows, m_columns);
    inverse = columnScale.asDiagonal() * factors.inverse() * rowScale.asDiagonal();
    if (!inverse.allFinite())
    {
        throw singular();
    }
    return result;
}

std::size_t CMatrix::Index(int a_row, int a_column) const
{
    if (a_row < 0 || a_row >= m_rows || a_column < 0 || a_column >= m_columns)
    {
        throw std::range_error("the matrix has no such element");
    }
    return static_cast<std::size_t>(a_row) * static_cast<std::size_t>(m_columns) + static_cast<std::size_t>(a_column);
}
