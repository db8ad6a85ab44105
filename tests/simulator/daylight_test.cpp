// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <lcms2.h>

#include "white_point.h"

// The formula that stands in where Little CMS is missing, beside Little CMS itself.
namespace simtest {
namespace {

TEST(Daylight, FormulaAgreesWithLittleCms) {
  for (int kelvin = 4000; kelvin <= 25000; kelvin += 7) {
    chroma::WhitePoint white{};
    cmsCIExyY point{};
    ASSERT_TRUE(chroma::daylight(kelvin, white)) << kelvin;
    ASSERT_TRUE(cmsWhitePointFromTemp(&point, kelvin)) << kelvin;
    ASSERT_NEAR(point.x, white.x, 1e-12) << kelvin;
    ASSERT_NEAR(point.y, white.y, 1e-12) << kelvin;
  }
}

TEST(Daylight, FormulaEndsWhereLittleCmsEnds) {
  for (const double kelvin : {3999.9, 25000.1, 0.0, -5000.0}) {
    chroma::WhitePoint white{};
    cmsCIExyY point{};
    EXPECT_FALSE(chroma::daylight(kelvin, white)) << kelvin;
    EXPECT_FALSE(cmsWhitePointFromTemp(&point, kelvin)) << kelvin;
  }
}

}  // namespace
}  // namespace simtest
