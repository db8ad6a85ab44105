// SPDX-License-Identifier: MIT
#include "monitors/selection.h"

#include <gtest/gtest.h>

#include "failure.h"

namespace kovctl {
namespace {

Candidate answering(const std::string& model, const std::string& serial) {
  return {MonitorName{model, serial}, std::nullopt};
}

Candidate silent() { return {MonitorName(), Failure(ExitCode::kCommunication, "no answer")}; }

const std::vector<Candidate> kMonitors{answering("OR-C321", "30210045"),
                                       answering("OR-M215", "21500012"),
                                       answering("OR-C240", "24000777"), answering("7", "1")};

// The first one does not answer.
const std::vector<Candidate> kSilent{silent(), kMonitors[1], kMonitors[2]};

Failure failureOf(const std::string& wanted, const std::vector<Candidate>& monitors = kMonitors) {
  try {
    selectMonitor(monitors, wanted);
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

TEST(Selection, PrefersABeginningToANumber) { EXPECT_EQ(selectMonitor(kMonitors, "7"), 3U); }

TEST(Selection, PrefersAWholeNameToALongerOne) {
  const std::vector<Candidate> alike{answering("A", "10"), answering("A", "1")};
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
  EXPECT_THROW(onlyMonitor({}), Failure);
}

TEST(Selection, TakesTheOnlyMonitorUnnamed) {
  EXPECT_EQ(onlyMonitor({kMonitors[2]}), 0U);
  EXPECT_THROW(onlyMonitor(kMonitors), Failure);
}

TEST(Selection, DoesNotTellMonitorsOfOneNameApart) {
  const std::vector<Candidate> twins{answering("A", "1"), answering("B", "2"), answering("A", "1")};
  for (const char* wanted : {"A:1", "A", "1", "3"}) {
    const Failure failure = failureOf(wanted, twins);
    EXPECT_EQ(failure.code, ExitCode::kMonitor) << wanted;
    EXPECT_EQ(failure.details, (std::vector<std::string>{"1  A:1", "3  A:1"})) << wanted;
  }
  EXPECT_EQ(selectMonitor(twins, "B"), 1U);
}

TEST(Selection, KeepsTheNumbersWhereOneIsSilent) {
  EXPECT_EQ(selectMonitor(kSilent, "2"), 1U);
  EXPECT_EQ(selectMonitor(kSilent, "3"), 2U);
  EXPECT_EQ(failureOf("1", kSilent).code, ExitCode::kCommunication);
  EXPECT_STREQ(failureOf("1", kSilent).what(), "no answer");
}

TEST(Selection, TakesNoOtherForASilentOne) {
  EXPECT_EQ(selectMonitor(kSilent, "OR-M215:21500012"), 1U);
  // The silent one may begin so, too.
  for (const char* wanted : {"OR-C", "OR-C321:30210045", "4"}) {
    const Failure failure = failureOf(wanted, kSilent);
    EXPECT_EQ(failure.code, ExitCode::kCommunication) << wanted;
    EXPECT_NE(std::string(failure.what()).find("a monitor does not answer"), std::string::npos);
    EXPECT_EQ(failure.details.front(), "1  does not answer") << wanted;
  }
  using Candidates = std::vector<Candidate>;
  for (const Candidates& monitors : {kSilent, Candidates{silent(), kMonitors[0]},
                                     Candidates{silent()}, Candidates{silent(), silent()}}) {
    try {
      onlyMonitor(monitors);
      ADD_FAILURE() << monitors.size();
    } catch (const Failure& failure) {
      EXPECT_EQ(failure.code, ExitCode::kCommunication);
    }
  }
}

}  // namespace
}  // namespace kovctl
