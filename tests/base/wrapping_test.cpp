// Arithmetic on what callers hand in wraps at 32 bits.
#include "base/wrapping.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

TEST(WrappingSum, AddsWithinTheRange) {
  EXPECT_EQ(5, flm::WrappingSum(2, 3));
  EXPECT_EQ(-1, flm::WrappingSum(2, -3));
  EXPECT_EQ(INT_MAX, flm::WrappingSum(INT_MAX, 0));
}

TEST(WrappingSum, WrapsAtBothEnds) {
  EXPECT_EQ(INT_MIN, flm::WrappingSum(INT_MAX, 1));
  EXPECT_EQ(INT_MAX, flm::WrappingSum(INT_MIN, -1));
  EXPECT_EQ(-2, flm::WrappingSum(INT_MAX, INT_MAX));
  EXPECT_EQ(0, flm::WrappingSum(INT_MIN, INT_MIN));
}

TEST(WrappingProduct, MultipliesWithinTheRange) {
  EXPECT_EQ(99909999, flm::WrappingSum(flm::WrappingProduct(999, 100000), 9999));
  EXPECT_EQ(-6, flm::WrappingProduct(2, -3));
  EXPECT_EQ(0, flm::WrappingProduct(INT_MIN, 0));
}

TEST(WrappingProduct, WrapsAtBothEnds) {
  EXPECT_EQ(-2, flm::WrappingProduct(INT_MAX, 2));
  EXPECT_EQ(0, flm::WrappingProduct(INT_MIN, 2));
  EXPECT_EQ(INT_MIN, flm::WrappingProduct(INT_MIN, -1));
  EXPECT_EQ(1, flm::WrappingProduct(INT_MAX, INT_MAX));
}

}  // namespace
