#include "Platform/System/Matrix.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <stdexcept>
#include <vector>

namespace
{

CMatrix Make(const std::vector<std::vector<double>>& a_rows)
{
    CMatrix matrix(static_cast<int>(a_rows.size()), static_cast<int>(a_rows.front().size()));
    for (int row = 0; row < matrix.Rows(); ++row)
    {
        for (int column = 0; column < matrix.Columns(); ++column)
        {
            matrix(row, column) = a_rows[row][column];
        }
    }
    return matrix;
}

void ExpectNear(const CMatrix& a_matrix, const std::vector<std::vector<double>>& a_rows)
{
    ASSERT_EQ(a_matrix.Rows(), static_cast<int>(a_rows.size()));
    ASSERT_EQ(a_matrix.Columns(), static_cast<int>(a_rows.front().size()));
    for (int row = 0; row < a_matrix.Rows(); ++row)
    {
        for (int column = 0; column < a_matrix.Columns(); ++column)
        {
            const double expected = a_rows[row][column];
            EXPECT_NEAR(a_matrix(row, column), expected, 1e-12 * std::abs(expected)) << row << ',' << column;
        }
    }
}

TEST(MatrixTest, ProductsTransposesAndInversesAreRight)
{
    const CMatrix a = Make({{1, 2, 3}, {4, 5, 6}});
    ExpectNear(a.Transpose(), {{1, 4}, {2, 5}, {3, 6}});
    ExpectNear(a * a.Transpose(), {{14, 32}, {32, 77}});
    ExpectNear(Make({{14, 32}, {32, 77}}).Inverse(), {{77.0 / 54, -32.0 / 54}, {-32.0 / 54, 14.0 / 54}});
    ExpectNear(Make({{0, 2}, {4, 0}}).Inverse(), {{0, 0.25}, {0.5, 0}});
    ExpectNear(Make({{1e150, 0, 0}, {0, 1, 0}, {0, 0, 1e-150}}).Inverse(), {{1e-150, 0, 0}, {0, 1, 0}, {0, 0, 1e150}});
}

TEST(MatrixTest, WhatCantBeReckonedThrows)
{
    constexpr double k_infinity = std::numeric_limits<double>::infinity();
    const CMatrix a = Make({{1, 2, 3}, {4, 5, 6}});
    const std::vector<std::function<void()>> cases{
        [] { CMatrix(0, 3); },
        [] { CMatrix(3, -1); },
        [&] { static_cast<void>(a(2, 0)); },
        [&] { static_cast<void>(a(0, -1)); },
        [&] { static_cast<void>(a * a); },
        [&] { static_cast<void>(a.Inverse()); },
        [] { static_cast<void>(Make({{0}}).Inverse()); },
        [] {
            static_cast<void>(Make({{1, 2}, {3, 6}}).Inverse());
        },
        [] {
            static_cast<void>(Make({{1, 2, 3}, {4, 5, 6}, {7, 8, 9}}).Inverse());
        },
        [] {
            static_cast<void>(Make({{1, 1}, {1, 1 + 1e-14}}).Inverse());
        },
        [] { static_cast<void>(Make({{1e-310}}).Inverse()); },
        [] {
            static_cast<void>(Make({{1, k_infinity}, {0, 1}}).Inverse());
        },
        [] {
            static_cast<void>(Make({{1, std::nan("")}, {0, 1}}).Inverse());
        },
    };
    for (std::size_t i = 0; i < cases.size(); ++i)
    {
        EXPECT_THROW(cases[i](), std::range_error) << "case " << i;
    }
    EXPECT_NO_THROW(static_cast<void>(Make({{1, 1}, {1, 1 + 1e-11}}).Inverse()));
}

} // namespace
