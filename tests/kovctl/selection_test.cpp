// SPDX-License-Identifier: MIT
#include "monitors/selection.h"

#include <gtest/gtest.h>

#include "failure.h"

namespace kovctl {
namespace {

const std::vector<MonitorName> kMonitors{
    {"OR-C321", "30210045"}, {"OR-M215", "21500012"}, {"OR-C240", "24000777"}, {"7", "1"}};

Failure failureOf(const std::string& wanted) {
  try {
    selectMonitor(kMonitors, wanted);
  } catch (const Failure& failure) {
    return failure;
  }
  ADD_FAILURE() << wanted << " was found";
  return Failure(ExitCode::kOk, "");
}

TEST(Selection, TakesAWholeNameAndAUniqueBeginning) {
  EXPECT_EQ(selectMonitor(kMonitors, "OR-M215:21500012"), 1U);
  EXPECT_EQ(selectMonitor(kMonitors, "OR-M"), 1U);
  EXPECT_EQ(selectMonitor(kMonitors, "OR-C24"), 2U);
}

TEST(Selection, TakesTheNumberOfTheList) {
  EXPECT_EQ(selectMonitor(kMonitors, "1"), 0U);
  EXPECT_EQ(selectMonitor(kMonitors, "3"), 2U);
}

TEST(Selection, PrefersABeginningToANumber) {
  EXPECT_EQ(selectMonitor(kMonitors, "7"), 3U);
}

TEST(Selection, PrefersAWholeNameToALongerOne) {
  const std::vector<MonitorName> alike{{"A", "10"}, {"A", "1"}};
  EXPECT_EQ(selectMonitor(alike, "A:1"), 1U);
}

TEST(Selection, NamesTheCandidatesOfAnAmbiguousText) {
  const Failure failure = failureOf("OR-C");
  EXPECT_EQ(failure.code, ExitCode::kMonitor);
  EXPECT_NE(std::string(failure.what()).find("ambiguous"), std::string::npos);
  EXPECT_EQ(failure.details,
            (std::vector<std::string>{"1  OR-C321:30210045", "3  OR-C240:24000777"}));
}

TEST(Selection, NamesAllMonitorsWhereNoneIsMeant) {
  for (const char* wanted : {"or-c321", "5", "0", "-1", "1x"}) {
    const Failure failure = failureOf(wanted);
    EXPECT_EQ(failure.code, ExitCode::kMonitor) << wanted;
    EXPECT_NE(std::string(failure.what()).find("no monitor found"), std::string::npos) << wanted;
    EXPECT_EQ(failure.details.size(), kMonitors.size()) << wanted;
  }
}

TEST(Selection, SaysWhenNothingIsAttached) {
  EXPECT_THROW(selectMonitor({}, "1"), Failure);
}

}  // namespace
}  // namespace kovctl
