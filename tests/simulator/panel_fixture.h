// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_SIMULATOR_PANEL_FIXTURE_H_
#define L5KOV_TESTS_SIMULATOR_PANEL_FIXTURE_H_

#include <gtest/gtest.h>

#include <array>
#include <cstdint>

#include "kov_panel.h"

namespace simtest {

inline constexpr const char* kSerial = "T1";

/// The colour monitor's panel: warm, without noise, 12 bits.
inline KovPanelParameters medianPanel() {
  KovPanelParameters p{};
  p.blackLuminance = 0.34;
  p.whiteLuminance = 332.0;
  p.gamma25 = 2.26;
  p.gamma50 = 2.21;
  p.gamma75 = 2.01;
  p.redX = 0.640;
  p.redY = 0.330;
  p.greenX = 0.300;
  p.greenY = 0.600;
  p.blueX = 0.150;
  p.blueY = 0.060;
  p.whiteX = 0.2990;
  p.whiteY = 0.3150;
  p.blackX = 0.2650;
  p.blackY = 0.2700;
  p.coldDeficit = 0.12;
  p.warmUpSeconds = 600.0;
  p.startSeconds = 60000.0;
  p.secondsPerPatch = 0.5;
  p.secondsPerMeasurement = 1.0;
  p.sensorFullScale = 1000.0;
  p.lutBits = 12;
  p.seed = 1;
  return p;
}

/// Registers the panel kSerial and takes it away again.
class PanelTest : public ::testing::Test {
 protected:
  void SetUp() override { build(medianPanel()); }
  void TearDown() override { kovpanel_remove(kSerial); }

  void build(const KovPanelParameters& parameters) {
    ASSERT_EQ(KOVPANEL_OK, kovpanel_register(kSerial, &parameters));
  }

  std::array<double, 3> emission(double red, double green, double blue) {
    std::array<double, 3> values{};
    EXPECT_EQ(KOVPANEL_OK, kovpanel_show(kSerial, red, green, blue));
    EXPECT_EQ(KOVPANEL_OK, kovpanel_emission(kSerial, values.data()));
    return values;
  }

  double gray(double level) { return emission(level, level, level)[0]; }

  double measured() {
    std::array<double, 3> values{};
    EXPECT_EQ(KOVPANEL_OK, kovpanel_measure(kSerial, values.data()));
    return values[0];
  }
};

}  // namespace simtest

#endif  // L5KOV_TESTS_SIMULATOR_PANEL_FIXTURE_H_
