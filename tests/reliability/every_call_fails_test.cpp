// SPDX-License-Identifier: MIT
// The whole flow again and again, each time with another JNI call failing, in each way that it can.
#include <gtest/gtest.h>

#include <iostream>
#include <map>
#include <set>

#include "tests/reliability/expectation.h"

namespace {

using namespace kovtest;
using namespace reliability;
using fakejvm::Fault;

enum class Machine { kCreated, kJoined };

// The flow in a fresh virtual machine.
std::vector<Step> flowIn(FakeJvm& jvm, KovWorld& world, Machine machine) {
  jvm->forgetVm();
  if (machine == Machine::kJoined) jvm->preCreateVm();
  furnish(world, jvm);
  Flow flow(jvm);
  flow.run();
  return flow.steps();
}

std::map<std::string, std::string> outcomesOf(const std::vector<Step>& steps) {
  std::map<std::string, std::string> outcomes;
  for (const Step& step : steps) outcomes[step.name] = step.outcome;
  return outcomes;
}

// Steps whose result rests on that of another.
bool restsOn(const std::string& step, const std::string& other) {
  static const std::map<std::string, std::set<std::string>> kRests{
      {"execute", {"registerCallback"}},
      // Also shows the last Java failure's message, which nothing clears.
      {"getCalibrationData", {"registerCallback", "setCalibrationTarget", "cancel", "execute"}},
      {"brokenQuery", {"getMonitorByName broken"}}};
  const auto found = kRests.find(step);
  return found != kRests.end() && found->second.count(other) > 0;
}

// "java/util/List.get(I)Ljava/lang/Object;" of a look-up's line, or "java/util/List." of a class's.
std::string lookedUp(const std::string& line) {
  const std::string what = line.substr(line.find(' ') + 1);
  return line.rfind("FindClass", 0) == 0 ? what + "." : what;
}

class EveryCallFails : public testing::Test {
 protected:
  void learn(Machine kind) {
    machine = kind;
    FakeJvm jvm;
    KovWorld world(jvm);
    const std::vector<Step> steps = flowIn(jvm, world, machine);
    sites = sitesOf(steps);
    clean = outcomesOf(steps);
    ASSERT_GT(sites.size(), 400u);
    ASSERT_EQ(sites.back().number, static_cast<int>(sites.size())) << "no call is left out";
  }

  // Every call that can fail in this way, in turn. Tells how many there were.
  void sweep(const Fault& fault) {
    int candidates = 0, struck = 0;
    for (const CallSite& site : sites) {
      const bool quiet = fault.kind == Fault::Kind::kNullResult;
      if (!canFail(site, quiet)) continue;
      SCOPED_TRACE("call " + std::to_string(site.number) + " in " + site.step + ": " + site.line);
      ++candidates;
      if (strike(site, fault)) ++struck;
      expectNextFlowToSucceed();
    }
    RecordProperty("struck", struck);
    std::cout << struck << " of " << sites.size() << " calls failed in turn\n";
    EXPECT_EQ(struck, candidates);
    EXPECT_GE(struck, 400);
  }

  std::vector<CallSite> sites;
  std::map<std::string, std::string> clean;

 private:
  // FakeJvm's own checks hold after each run: no misuse, no global reference, UTF characters or
  // frame left, nothing pending.
  bool strike(const CallSite& site, const Fault& fault) {
    FakeJvm jvm;
    KovWorld world(jvm);
    jvm->failCall(site.number, fault);
    const std::vector<Step> steps = flowIn(jvm, world, machine);
    if (jvm->faultsApplied() == 0) return false;
    EXPECT_EQ(jvm->faultsApplied(), 1);
    const std::map<std::string, std::string> outcomes = outcomesOf(steps);
    const Expectation wanted = expected(site, fault);
    const std::string& outcome = outcomes.at(site.step);
    EXPECT_TRUE(wanted.holdsFor(outcome))
        << "ended with \"" << outcome.substr(0, 200) << "\", not " << wanted.inWords();
    expectOthersUnharmed(site, outcomes);
    return true;
  }

  void expectOthersUnharmed(const CallSite& site,
                            const std::map<std::string, std::string>& outcomes) {
    const bool lookUp = site.step == "start" && (site.slot() == "FindClass" ||
                                                 site.slot().find("MethodID") != std::string::npos);
    std::set<std::string> harmed{site.step};
    for (const CallSite& other : sites) {
      const auto outcome = outcomes.find(other.step);
      // Not reached: what it needed was not made.
      if (outcome == outcomes.end() || outcome->second == clean.at(other.step)) continue;
      bool rests = false;
      for (const std::string& step : harmed) rests = rests || restsOn(other.step, step);
      const bool named = lookUp && outcome->second.find(lookedUp(site.line)) != std::string::npos;
      EXPECT_TRUE(other.step == site.step || rests || named || harmed.count(other.step))
          << other.step << " ended with \"" << outcome->second.substr(0, 200) << "\"";
      harmed.insert(other.step);
    }
    if (outcomes.size() != clean.size()) expectReasonForMissingSteps(outcomes);
  }

  void expectReasonForMissingSteps(const std::map<std::string, std::string>& outcomes) {
    const bool monitorMissed = outcomes.at("getMonitorByName") != clean.at("getMonitorByName");
    const bool calibratorMissed = outcomes.at("construct") != clean.at("construct");
    EXPECT_TRUE(monitorMissed || calibratorMissed);
    EXPECT_EQ(outcomes.count("getModelName"), monitorMissed ? 0u : 1u);
    EXPECT_EQ(outcomes.count("execute"), calibratorMissed ? 0u : 1u);
  }

  // In the same virtual machine.
  void expectNextFlowToSucceed() {
    FakeJvm jvm;
    KovWorld world(jvm);
    furnish(world, jvm);
    Flow flow(jvm);
    flow.run();
    EXPECT_EQ(outcomesOf(flow.steps()), clean);
  }

  Machine machine = Machine::kCreated;
};

constexpr const char* kIo = "java/io/IOException";
constexpr const char* kResource = "com/orva/dt/commons/resourceman/ResourceException";
constexpr const char* kStranger = "com/orva/kov/library/api/UnheardOfException";
constexpr const char* kSending = "COM3: Error sending data (timeout)";

TEST_F(EveryCallFails, WithNull) {
  learn(Machine::kCreated);
  sweep(Fault::nullResult());
}
TEST_F(EveryCallFails, WithNullInAJoinedMachine) {
  learn(Machine::kJoined);
  sweep(Fault::nullResult());
}
TEST_F(EveryCallFails, WithAnIoExceptionThatSpeaksOfSending) {
  learn(Machine::kCreated);
  sweep(Fault::exception(kIo, kSending));
}
TEST_F(EveryCallFails, WithAnotherIoException) {
  learn(Machine::kCreated);
  sweep(Fault::exception(kIo, "error sending data"));
}
TEST_F(EveryCallFails, WithAResourceExceptionThatSpeaksOfSending) {
  learn(Machine::kCreated);
  sweep(Fault::exception(kResource, kSending));
}
TEST_F(EveryCallFails, WithAnotherResourceException) {
  learn(Machine::kCreated);
  sweep(Fault::exception(kResource, "no such resource"));
}
TEST_F(EveryCallFails, WithAnExceptionOfAnUnknownClass) {
  learn(Machine::kCreated);
  sweep(Fault::exception(kStranger, kSending));
}
TEST_F(EveryCallFails, WithAnExceptionWithoutAMessage) {
  learn(Machine::kCreated);
  sweep(Fault::exception(kIo));
}
TEST_F(EveryCallFails, WithAMessageOfAMebibyte) {
  learn(Machine::kCreated);
  const std::string half(std::size_t{1} << 19, 'x');
  sweep(Fault::exception(kIo, half + "Error sending data" + half));
}

// A binding that start-up did not find: exactly the steps that call it fail, and name it.
TEST_F(EveryCallFails, LookUpsAtStartUpAreMissedWhereTheyAreNeeded) {
  learn(Machine::kCreated);
  const std::map<std::string, std::set<std::string>> users{
      {"com/orva/kov/library/api/Monitor.getModel()", {"getModelName", "getPackageName"}},
      {"com/orva/kov/library/api/Osd.isLocked()", {"getKeyLockState"}},
      {"com/orva/kov/library/api/Monitor.abortCalibration()",
       {"abortCalibration", "cancel", "getCalibrationData"}},
      {"java/lang/System.gc()", {"release"}}};
  int found = 0;
  for (const CallSite& site : sites) {
    if (site.step != "start") continue;
    for (const auto& [member, steps] : users) {
      if (lookedUp(site.line).rfind(member, 0) != 0) continue;
      SCOPED_TRACE(site.line);
      ++found;
      FakeJvm jvm;
      KovWorld world(jvm);
      jvm->failCall(site.number, Fault::nullResult());
      std::set<std::string> harmed;
      for (const Step& step : flowIn(jvm, world, Machine::kCreated)) {
        if (step.outcome != clean.at(step.name)) harmed.insert(step.name);
      }
      EXPECT_EQ(harmed, steps);
    }
  }
  EXPECT_EQ(found, static_cast<int>(users.size()));
}

}  // namespace
