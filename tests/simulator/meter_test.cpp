// SPDX-License-Identifier: MIT
#include <cmath>
#include <limits>
#include <memory>
#include <string>

#include "panel_fixture.h"
#include "sim_meter.h"

namespace simtest {
namespace {

struct Close {
  void operator()(void* device) const { MDSimClose(device); }
};
using Meter = std::unique_ptr<void, Close>;

TEST(MeterIdentity, IsWhatItWasOpenedWith) {
  const Meter meter(MDSimOpen(163, "SN-7", kSerial));
  EXPECT_EQ(163U, MDGetDeviceID(meter.get()));
  EXPECT_STREQ("SN-7", MDGetSerialNumber(meter.get()));
}

TEST(MeterIdentity, NullHandleIsNoInstrument) {
  EXPECT_EQ(0U, MDGetDeviceID(nullptr));
  EXPECT_EQ(nullptr, MDGetSerialNumber(nullptr));
  EXPECT_EQ(MDSIM_BAD_ARGUMENT, MDSimShowPatch(nullptr, 0, 0, 0));
  double value = 0.0;
  EXPECT_EQ(MDSIM_BAD_ARGUMENT, MDSimMeasure(nullptr, &value, &value, &value));
  MDSimClose(nullptr);
}

TEST(MeterIdentity, KeepsANullSerialNumber) {
  const Meter meter(MDSimOpen(163, nullptr, kSerial));
  EXPECT_EQ(nullptr, MDGetSerialNumber(meter.get()));
}

TEST(MeterIdentity, NeedsAMonitor) {
  EXPECT_EQ(nullptr, MDSimOpen(163, "SN-7", nullptr));
}

class MeterTest : public PanelTest {
 protected:
  Meter meter{MDSimOpen(163, "SN-7", kSerial)};
};

TEST_F(MeterTest, ReadsWhatThePanelShows) {
  double luminance = 0.0;
  double x = 0.0;
  double y = 0.0;
  ASSERT_EQ(MDSIM_OK, MDSimShowPatch(meter.get(), 1, 1, 1));
  ASSERT_EQ(MDSIM_OK, MDSimMeasure(meter.get(), &luminance, &x, &y));
  EXPECT_NEAR(332.0, luminance, 1e-9);
  EXPECT_NEAR(0.2990, x, 1e-9);
  EXPECT_NEAR(0.3150, y, 1e-9);
  ASSERT_EQ(KOVPANEL_OK, kovpanel_set_backlight(kSerial, 0, 0.5));
  ASSERT_EQ(MDSIM_OK, MDSimMeasure(meter.get(), &luminance, &x, &y));
  EXPECT_NEAR(166.0, luminance, 1e-9);
}

TEST_F(MeterTest, TellsHowThePanelIsDriven) {
  double signal[4] = {};
  ASSERT_EQ(MDSIM_OK, MDSimShowPatch(meter.get(), 1.0, 0.0, 0.2));
  ASSERT_EQ(MDSIM_OK, MDSimSignal(meter.get(), signal));
  EXPECT_DOUBLE_EQ(1.0, signal[0]);
  EXPECT_DOUBLE_EQ(0.0, signal[1]);
  EXPECT_DOUBLE_EQ(0.2, signal[2]);
  EXPECT_DOUBLE_EQ(1.0, signal[3]);
  EXPECT_EQ(MDSIM_BAD_ARGUMENT, MDSimSignal(meter.get(), nullptr));
  EXPECT_EQ(MDSIM_BAD_ARGUMENT, MDSimSignal(nullptr, signal));
}

TEST_F(MeterTest, UnknownMonitorLeavesTheValuesAlone) {
  const Meter lost(MDSimOpen(163, "SN-7", "nobody"));
  double luminance = -1.0;
  double x = -1.0;
  double y = -1.0;
  EXPECT_EQ(MDSIM_UNKNOWN_MONITOR, MDSimShowPatch(lost.get(), 1, 1, 1));
  EXPECT_EQ(MDSIM_UNKNOWN_MONITOR, MDSimMeasure(lost.get(), &luminance, &x, &y));
  EXPECT_EQ(-1.0, luminance);
  EXPECT_EQ(-1.0, x);
  EXPECT_EQ(-1.0, y);
}

TEST_F(MeterTest, FindsAMonitorThatComesLater) {
  const Meter early(MDSimOpen(163, "SN-7", "later"));
  EXPECT_EQ(MDSIM_UNKNOWN_MONITOR, MDSimShowPatch(early.get(), 1, 1, 1));
  const KovPanelParameters p = medianPanel();
  ASSERT_EQ(KOVPANEL_OK, kovpanel_register("later", &p));
  EXPECT_EQ(MDSIM_OK, MDSimShowPatch(early.get(), 1, 1, 1));
  EXPECT_EQ(KOVPANEL_OK, kovpanel_remove("later"));
}

TEST_F(MeterTest, RefusesWhatIsNotANumber) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(MDSIM_BAD_ARGUMENT, MDSimShowPatch(meter.get(), 0, nan, 0));
  double value = 0.0;
  EXPECT_EQ(MDSIM_BAD_ARGUMENT, MDSimMeasure(meter.get(), &value, nullptr, &value));
}

TEST(MeterErrors, EachCodeHasItsSentence) {
  const std::string other = MDSimErrorText(99);
  for (const int code :
       {MDSIM_OK, MDSIM_NO_PANEL_LIBRARY, MDSIM_UNKNOWN_MONITOR, MDSIM_BAD_ARGUMENT}) {
    EXPECT_NE(other, MDSimErrorText(code));
  }
}

}  // namespace
}  // namespace simtest
