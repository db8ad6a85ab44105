// SPDX-License-Identifier: MIT
#include <cmath>
#include <limits>
#include <thread>
#include <vector>

#include "panel_fixture.h"

namespace simtest {
namespace {

/// L(t) = Lk + (Lw - Lk) t^γ, written down once more.
double expected(double t, double gamma) {
  return 0.34 + (332.0 - 0.34) * std::pow(t, gamma);
}

TEST_F(PanelTest, BlackAndWhiteAreThoseOfTheDesign) {
  EXPECT_NEAR(0.34, gray(0.0), 1e-12);
  EXPECT_NEAR(332.0, gray(1.0), 1e-9);
}

TEST_F(PanelTest, GammaRunsThroughItsThreeValues) {
  // A picture has no level at 25, 50 and 75 %, a table has an entry that is near enough.
  std::array<uint16_t, 256> table{};
  const double drives[] = {0.25, 0.5, 0.75};
  const double gammas[] = {2.26, 2.21, 2.01};
  for (int i = 0; i < 3; ++i) {
    const auto entry = static_cast<uint16_t>(std::lround(drives[i] * 4095));
    table.fill(entry);
    for (int channel = 0; channel < 3; ++channel) {
      ASSERT_EQ(KOVPANEL_OK, kovpanel_set_table(kSerial, 0, channel, table.data()));
    }
    // The entry misses the drive by up to half a step, over which γ itself hardly moves.
    const double light = expected(entry / 4095.0, gammas[i]);
    EXPECT_NEAR(light, gray(0.0), 2e-4 * light) << drives[i];
  }
}

TEST_F(PanelTest, MoreDriveGivesMoreLight) {
  double last = -1.0;
  for (int level = 0; level < 256; ++level) {
    const double now = gray(level / 255.0);
    EXPECT_GT(now, last) << level;
    last = now;
  }
}

TEST_F(PanelTest, LightOfTheChannelsAdds) {
  const std::array<double, 3> black = emission(0, 0, 0);
  const double sum = emission(1, 0, 0)[0] + emission(0, 1, 0)[0] + emission(0, 0, 1)[0];
  EXPECT_NEAR(332.0, sum - 2.0 * black[0], 1e-9);
}

TEST_F(PanelTest, ColoursAreThoseOfTheDesign) {
  const std::array<double, 3> white = emission(1, 1, 1);
  EXPECT_NEAR(0.2990, white[1], 1e-9);
  EXPECT_NEAR(0.3150, white[2], 1e-9);
  const std::array<double, 3> black = emission(0, 0, 0);
  EXPECT_NEAR(0.2650, black[1], 1e-9);
  EXPECT_NEAR(0.2700, black[2], 1e-9);
  // A primary is seen through the black level, so it lies a little inside.
  const std::array<double, 3> red = emission(1, 0, 0);
  EXPECT_NEAR(0.640, red[1], 0.01);
  EXPECT_LT(red[1], 0.640);
}

TEST_F(PanelTest, MonochromePixelIsGrayWhateverItIsSent) {
  KovPanelParameters p = medianPanel();
  p.monochrome = 1;
  build(p);
  const double third = (332.0 - 0.34) / 3.0;
  EXPECT_NEAR(0.34 + third, emission(1, 0, 0)[0], 1e-9);
  EXPECT_NEAR(0.34 + third, emission(0, 0, 1)[0], 1e-9);
  EXPECT_NEAR(332.0, gray(1.0), 1e-9);
}

TEST_F(PanelTest, BacklightScalesEverythingAndTheSensorFollows) {
  ASSERT_EQ(KOVPANEL_OK, kovpanel_set_backlight(kSerial, 0, 0.5));
  EXPECT_NEAR(166.0, gray(1.0), 1e-9);
  EXPECT_NEAR(0.17, gray(0.0), 1e-9);
  int32_t counts = 0;
  ASSERT_EQ(KOVPANEL_OK, kovpanel_sensor(kSerial, &counts));
  EXPECT_EQ(500, counts);
}

TEST_F(PanelTest, EachTableHasItsOwnEntriesAndBacklight) {
  std::array<uint16_t, 256> dark{};
  for (int channel = 0; channel < 3; ++channel) {
    ASSERT_EQ(KOVPANEL_OK, kovpanel_set_table(kSerial, 2, channel, dark.data()));
  }
  ASSERT_EQ(KOVPANEL_OK, kovpanel_set_backlight(kSerial, 2, 0.25));
  EXPECT_NEAR(332.0, gray(1.0), 1e-9);
  ASSERT_EQ(KOVPANEL_OK, kovpanel_activate(kSerial, 2));
  EXPECT_NEAR(0.34 / 4.0, gray(1.0), 1e-12);
  ASSERT_EQ(KOVPANEL_OK, kovpanel_activate(kSerial, 0));
  EXPECT_NEAR(332.0, gray(1.0), 1e-9);
}

TEST_F(PanelTest, SignalIsWhatTheTableAndTheBacklightMakeOfThePatch) {
  std::array<uint16_t, 256> table{};
  table[128] = 1000;
  ASSERT_EQ(KOVPANEL_OK, kovpanel_set_table(kSerial, 0, 1, table.data()));
  ASSERT_EQ(KOVPANEL_OK, kovpanel_set_backlight(kSerial, 0, 0.75));
  ASSERT_EQ(KOVPANEL_OK, kovpanel_show(kSerial, 1.0, 128.0 / 255.0, 51.0 / 255.0));
  std::array<double, 4> signal{};
  ASSERT_EQ(KOVPANEL_OK, kovpanel_signal(kSerial, signal.data()));
  EXPECT_DOUBLE_EQ(1.0, signal[0]);
  EXPECT_DOUBLE_EQ(1000.0 / 4095.0, signal[1]);
  EXPECT_DOUBLE_EQ(0.2, signal[2]);
  EXPECT_DOUBLE_EQ(0.75, signal[3]);
  EXPECT_EQ(KOVPANEL_BAD_ARGUMENT, kovpanel_signal(kSerial, nullptr));
}

TEST_F(PanelTest, ColdPanelBrightensOnItsOwnClockOnly) {
  KovPanelParameters p = medianPanel();
  p.startSeconds = 0.0;
  p.secondsPerPatch = 0.0;
  build(p);
  EXPECT_NEAR(332.0 * 0.88, gray(1.0), 1e-9);
  EXPECT_NEAR(332.0 * 0.88, gray(1.0), 1e-9);
  ASSERT_EQ(KOVPANEL_OK, kovpanel_wait(kSerial, 600.0));
  EXPECT_NEAR(332.0 * (1.0 - 0.12 / std::exp(1.0)), gray(1.0), 1e-9);
}

TEST_F(PanelTest, PatchesAndMeasurementsTakeTheTimeOfTheDesign) {
  double before = 0.0;
  double after = 0.0;
  ASSERT_EQ(KOVPANEL_OK, kovpanel_clock(kSerial, &before));
  gray(0.5);
  measured();
  measured();
  ASSERT_EQ(KOVPANEL_OK, kovpanel_clock(kSerial, &after));
  EXPECT_DOUBLE_EQ(0.0, before);
  EXPECT_DOUBLE_EQ(2.5, after);
}

TEST_F(PanelTest, NoiseHasTheSpreadOfTheDesignAndNoBias) {
  KovPanelParameters p = medianPanel();
  p.noiseRelative = 0.0013;
  p.noiseAbsolute = 0.002;
  build(p);
  for (const double level : {0.0, 1.0}) {
    const double truth = gray(level);
    const double spread = std::hypot(0.0013 * truth, 0.002);
    constexpr int kReadings = 20000;
    double sum = 0.0;
    double squares = 0.0;
    for (int i = 0; i < kReadings; ++i) {
      const double error = measured() - truth;
      sum += error;
      squares += error * error;
    }
    // Four standard deviations of the mean and of the spread.
    EXPECT_NEAR(0.0, sum / kReadings, 4.0 * spread / std::sqrt(kReadings));
    EXPECT_NEAR(spread, std::sqrt(squares / kReadings), 4.0 * spread / std::sqrt(2.0 * kReadings));
  }
}

TEST_F(PanelTest, SameSeedGivesTheSameReadings) {
  KovPanelParameters p = medianPanel();
  p.noiseRelative = 0.0013;
  const auto series = [&](uint64_t seed) {
    p.seed = seed;
    build(p);
    std::vector<double> readings;
    gray(1.0);
    for (int i = 0; i < 20; ++i) {
      readings.push_back(measured());
    }
    return readings;
  };
  const std::vector<double> first = series(7);
  EXPECT_EQ(first, series(7));
  EXPECT_NE(first, series(8));
}

TEST_F(PanelTest, ComponentsAreSentAsEightBits) {
  EXPECT_DOUBLE_EQ(gray(128.0 / 255.0), gray(0.5));
  EXPECT_DOUBLE_EQ(gray(0.0), gray(-1.0));
  EXPECT_DOUBLE_EQ(gray(1.0), gray(2.0));
}

TEST_F(PanelTest, RefusesWhatNoRegisterTakes) {
  std::array<uint16_t, 256> table{};
  table[9] = 4096;
  EXPECT_EQ(KOVPANEL_BAD_ARGUMENT, kovpanel_set_table(kSerial, 0, 0, table.data()));
  EXPECT_EQ(KOVPANEL_BAD_ARGUMENT, kovpanel_set_table(kSerial, 0, 3, table.data()));
  EXPECT_EQ(KOVPANEL_BAD_ARGUMENT, kovpanel_set_table(kSerial, 0, 0, nullptr));
  EXPECT_EQ(KOVPANEL_BAD_ARGUMENT, kovpanel_set_backlight(kSerial, 0, 1.01));
  EXPECT_EQ(KOVPANEL_BAD_ARGUMENT, kovpanel_activate(kSerial, KOVPANEL_TABLES));
  EXPECT_EQ(KOVPANEL_BAD_ARGUMENT, kovpanel_activate(kSerial, -1));
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(KOVPANEL_BAD_ARGUMENT, kovpanel_show(kSerial, nan, 0, 0));
  EXPECT_EQ(KOVPANEL_BAD_ARGUMENT, kovpanel_wait(kSerial, -1.0));
  EXPECT_EQ(KOVPANEL_BAD_ARGUMENT, kovpanel_measure(kSerial, nullptr));
  EXPECT_EQ(KOVPANEL_BAD_ARGUMENT, kovpanel_show(nullptr, 0, 0, 0));
  EXPECT_EQ(KOVPANEL_UNKNOWN_SERIAL, kovpanel_show("nobody", 0, 0, 0));
  EXPECT_EQ(KOVPANEL_UNKNOWN_SERIAL, kovpanel_remove("nobody"));
}

TEST_F(PanelTest, RefusesAPanelThatCannotBe) {
  const auto refused = [](KovPanelParameters p) {
    return kovpanel_register("impossible", &p) == KOVPANEL_BAD_ARGUMENT;
  };
  KovPanelParameters p = medianPanel();
  p.whiteLuminance = 0.1;
  EXPECT_TRUE(refused(p));
  p = medianPanel();
  p.whiteX = 0.7;
  p.whiteY = 0.2;
  EXPECT_TRUE(refused(p)) << "white outside the primaries";
  p = medianPanel();
  p.greenX = p.redX;
  p.greenY = p.redY;
  EXPECT_TRUE(refused(p)) << "two primaries alike";
  p = medianPanel();
  p.gamma75 = 10.0;
  p.gamma50 = 0.2;
  EXPECT_TRUE(refused(p)) << "a curve that falls";
  p = medianPanel();
  p.lutBits = 17;
  EXPECT_TRUE(refused(p));
  p = medianPanel();
  p.noiseRelative = std::numeric_limits<double>::quiet_NaN();
  EXPECT_TRUE(refused(p));
  EXPECT_EQ(KOVPANEL_UNKNOWN_SERIAL, kovpanel_show("impossible", 0, 0, 0));
}

TEST_F(PanelTest, ServesManyThreads) {
  // Each thread drives a panel of its own while one more looks at all of them.
  constexpr int kThreads = 4;
  std::vector<std::string> serials;
  for (int i = 0; i < kThreads; ++i) {
    serials.push_back(std::to_string(i));
    const KovPanelParameters p = medianPanel();
    ASSERT_EQ(KOVPANEL_OK, kovpanel_register(serials.back().c_str(), &p));
  }
  std::vector<std::thread> threads;
  for (const std::string& serial : serials) {
    threads.emplace_back([&serial] {
      std::array<double, 3> reading{};
      for (int i = 0; i < 2000; ++i) {
        const double level = (i % 256) / 255.0;
        kovpanel_show(serial.c_str(), level, level, level);
        kovpanel_measure(serial.c_str(), reading.data());
      }
    });
  }
  for (int i = 0; i < 2000; ++i) {
    std::array<double, 3> reading{};
    kovpanel_emission(serials[static_cast<std::size_t>(i % kThreads)].c_str(), reading.data());
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  for (const std::string& serial : serials) {
    double seconds = 0.0;
    ASSERT_EQ(KOVPANEL_OK, kovpanel_clock(serial.c_str(), &seconds));
    EXPECT_DOUBLE_EQ(3000.0, seconds);
    EXPECT_EQ(KOVPANEL_OK, kovpanel_remove(serial.c_str()));
  }
}

}  // namespace
}  // namespace simtest
