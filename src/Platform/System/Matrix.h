#pragma once

#include <cstddef>
#include <vector>

/// A dense matrix of doubles. What can't be reckoned throws std::range_error: a size below 1, an element outside of the
/// matrix, factors whose sizes don't match, an inverse that doesn't exist.
class CMatrix
{
public:
    /// All elements are 0.
    CMatrix(int a_rows, int a_columns);

    [[nodiscard]] int Rows() const { return m_rows; }
    [[nodiscard]] int Columns() const { return m_columns; }

    [[nodiscard]] double& operator()(int a_row, int a_column);
    [[nodiscard]] double operator()(int a_row, int a_column) const;

    [[nodiscard]] CMatrix Transpose() const;
    [[nodiscard]] CMatrix operator*(const CMatrix& a_right) const;

    /// Found with full pivoting, after each row and then each column has been divided by its largest element. A matrix
    /// counts as singular if its smallest pivot is then no more than 1e-13 of the largest, or if an element of it, or
    /// of the inverse, isn't finite.
    [[nodiscard]] CMatrix Inverse() const;

private:
    [[nodiscard]] std::size_t Index(int a_row, int a_column) const;

    int m_rows;
    int m_columns;
    /// Row by row.
    std::vector<double> m_elements;
};
