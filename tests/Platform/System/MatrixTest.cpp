#include "Platform/System/Matrix.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <stdexcept>

namespace
{

CMatrix Square(double a_a, double a_b, double a_c, double a_d)
{
    CMatrix matrix(2, 2);
    matrix(0, 0) = a_a;
    matrix(0, 1) = a_b;
    matrix(1, 0) = a_c;
    matrix(1, 1) = a_d;
    return matrix;
}

TEST(MatrixTest, WhatCantBeReckonedThrows)
{
    const CMatrix wide(2, 3);
    EXPECT_THROW(CMatrix(0, 3), std::range_error);
    EXPECT_THROW(CMatrix(3, -1), std::range_error);
    EXPECT_THROW(static_cast<void>(wide(2, 0)), std::range_error);
    EXPECT_THROW(static_cast<void>(wide(0, -1)), std::range_error);
    EXPECT_THROW(static_cast<void>(wide * wide), std::range_error);
    EXPECT_THROW(static_cast<void>(wide.Inverse()), std::range_error);
    for (const CMatrix& singular :
         {Square(0, 0, 0, 1), Square(1, 2, 3, 6), Square(1, 1, 1, 1 + 1e-14), Square(1, std::nan(""), 0, 1),
          Square(1, std::numeric_limits<double>::infinity(), 0, 1), Square(1e-310, 0, 0, 1)})
    {
        EXPECT_THROW(static_cast<void>(singular.Inverse()), std::range_error) << singular(0, 1);
    }
    EXPECT_NO_THROW(static_cast<void>(Square(1, 1, 1, 1 + 1e-11).Inverse()));
    EXPECT_DOUBLE_EQ(Square(0, 2e-150, 1e150, 0).Inverse()(1, 0), 0.5e150) << "the sizes of elements don't matter";
}

} // namespace
