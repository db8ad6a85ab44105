// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_MONITOR_FAULT_SWEEP_H_
#define L5KOV_TESTS_MONITOR_FAULT_SWEEP_H_

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "l5kov.h"
#include "tests/support/kov_world.h"

namespace kovtest {

// Runs one operation again and again in a fresh world, each time with another of its JNI calls
// failing. After each run the fixture's own checks hold: no misuse of JNI, no global reference
// left, no frame open, nothing pending.
//
// A Scenario is made in the fresh world (what it makes before `run` is not made to fail), and is
// destroyed before the checks:
//   struct Scenario { Scenario(FakeJvm&, KovWorld&); void run(); };
template <class Scenario>
class FaultSweep {
 public:
  // Looks at a run whose call `line` failed.
  using Check = std::function<void(const std::string& line, FakeJvm&, Scenario&)>;

  // A Java exception from every call into Java (instance, static, constructor), in turn.
  // Returns how many there were.
  static int everyJavaCallThrows(const fakejvm::Fault& fault, const Check& check) {
    return sweep(fault, isJavaCall, check);
  }

  // Null, zero or an error code from every JNI call that can fail that way, in turn.
  static int everyCallGivesNothing(const Check& check) {
    return sweep(
        fakejvm::Fault::nullResult(), [](const std::string&) { return true; }, check);
  }

 private:
  static bool isJavaCall(const std::string& line) {
    return line.rfind("Call", 0) == 0 || line.rfind("NewObject", 0) == 0;
  }

  template <class Wanted>
  static int sweep(const fakejvm::Fault& fault, Wanted wanted, const Check& check) {
    int struck = 0;
    const std::vector<std::string> lines = callsOfCleanRun();
    for (std::size_t i = 0; i < lines.size(); ++i) {
      if (!wanted(lines[i])) continue;
      SCOPED_TRACE("failing: " + lines[i] + " (call " + std::to_string(i + 1) + ")");
      FakeJvm jvm;
      KovWorld world(jvm);
      {
        Scenario scenario(jvm, world);
        jvm->failCall(jvm->callCount() + static_cast<int>(i) + 1, fault);
        scenario.run();
        if (jvm->faultsApplied() == 1) {
          ++struck;
          check(lines[i], jvm, scenario);
        }
      }
      // What an unguarded call leaves pending is the next guarded one's to discard.
      if (fault.kind == fakejvm::Fault::Kind::kNullResult) jvm->clearPendingException();
    }
    return struck;
  }

  static std::vector<std::string> callsOfCleanRun() {
    FakeJvm jvm;
    KovWorld world(jvm);
    lumora::kov::java::Env();
    Scenario scenario(jvm, world);
    jvm.log.clear();
    scenario.run();
    std::vector<std::string> calls;
    for (const std::string& line : jvm.log.lines()) {
      const bool transition = line.rfind("enter ", 0) == 0 || line.rfind("leave ", 0) == 0;
      if (!transition) calls.push_back(line);
    }
    return calls;
  }
};

}  // namespace kovtest

#endif  // L5KOV_TESTS_MONITOR_FAULT_SWEEP_H_
