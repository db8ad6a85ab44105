// SPDX-License-Identifier: MIT
// The waits of the monitor search, with a clock that does not wait.
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "tests/monitor/monitor_fixture.h"
#include "tests/step_clock/step_clock.h"

namespace {

using namespace kovtest;
using lumora::kov::KovMonitorManager;

class MonitorSearchWait : public MonitorTest {
 protected:
  std::string find() {
    return logicErrorOf([] { KovMonitorManager::get().find(); });
  }
  std::vector<unsigned> waits() const { return StepClock::get().waits(); }
  std::ptrdiff_t polls() const {
    const Lines calls = jvm.log.javaCalls();
    return std::count(calls.begin(), calls.end(), "library.getSearchStatus()");
  }
};

const std::vector<unsigned> kThreeMinutes(180, 1000);

TEST_F(MonitorSearchWait, RunningForEverEndsInTheTimeoutAfter180Polls) {
  world.setSearchStatuses({world.statusRunning});
  EXPECT_EQ(find(), "Monitor search error: Timeout.");
  EXPECT_EQ(waits(), kThreeMinutes);
  EXPECT_EQ(polls(), 180) << "after the last wait the status is not read again";
}

TEST_F(MonitorSearchWait, NoneForEverEndsInTheTimeoutAndNotAsUnexpectedStatus) {
  world.setSearchStatuses({world.statusNone});
  EXPECT_EQ(find(), "Monitor search error: Timeout.");
  EXPECT_EQ(waits(), kThreeMinutes);
}

TEST_F(MonitorSearchWait, NoneIsWaitedForLikeRunning) {
  world.setSearchStatuses({world.statusNone, world.statusRunning, world.statusNone,
                           world.statusRunning, world.statusFinished});
  EXPECT_EQ(find(), "nothing");
  EXPECT_EQ(waits(), std::vector<unsigned>(4, 1000));
  EXPECT_EQ(polls(), 5);
}

TEST_F(MonitorSearchWait, SearchThatFinishesAtThe180thPollSucceeds) {
  std::vector<fakejvm::ObjectRef> statuses(179, world.statusRunning);
  statuses.push_back(world.statusFinished);
  world.setSearchStatuses(statuses);
  EXPECT_EQ(find(), "nothing");
  EXPECT_EQ(waits().size(), 179U);
}

TEST_F(MonitorSearchWait, SearchThatFinishesInThe180thWaitIsATimeoutAllTheSame) {
  std::vector<fakejvm::ObjectRef> statuses(180, world.statusRunning);
  statuses.push_back(world.statusFinished);
  world.setSearchStatuses(statuses);
  EXPECT_EQ(find(), "Monitor search error: Timeout.");
}

TEST_F(MonitorSearchWait, FinishedSearchDoesNotWait) {
  EXPECT_EQ(find(), "nothing");
  EXPECT_TRUE(waits().empty());
}

TEST_F(MonitorSearchWait, UnexpectedStatusAfterSomePollsEndsTheSearch) {
  world.setSearchStatuses({world.statusRunning, world.statusRunning, nullptr});
  EXPECT_EQ(find(), "Monitor search error: Unexpected status.");
  EXPECT_EQ(waits().size(), 2U);
}

TEST_F(MonitorSearchWait, JavaExceptionWhilePollingPropagates) {
  world.setSearchStatuses({world.statusRunning});
  int asked = 0;
  jvm->script(kLibraryClass, "getSearchStatus", [&](fakejvm::Call&) -> fakejvm::Value {
    if (++asked == 3) throw fakejvm::JavaThrow("java/io/IOException", "unplugged");
    return world.statusRunning;
  });
  EXPECT_EQ(javaExceptionOf([] { KovMonitorManager::get().find(); }),
            "java.io.IOException: unplugged");
  EXPECT_EQ(waits().size(), 2U);
}

// Nothing is deleted one by one; the frame takes all of a search's references with it.
TEST_F(MonitorSearchWait, LocalReferencesOfALongSearchGoWithItsFrame) {
  world.setSearchStatuses({world.statusRunning});
  const int before = jvm->localRefs();
  find();
  EXPECT_EQ(jvm->localRefs(), before);
}

}  // namespace
