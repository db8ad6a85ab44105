// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_RELIABILITY_FLOW_H_
#define L5KOV_TESTS_RELIABILITY_FLOW_H_

#include <functional>
#include <string>
#include <vector>

#include "l5kov.h"
#include "tests/support/kov_world.h"

namespace reliability {

// One operation of the host, what it ended with, and the JNI calls that were made meanwhile.
struct Step {
  std::string name;
  // A value in words, "OM_OK message", "java.io.IOException: text", "bad_alloc",
  // "logic_error: text", "not run".
  std::string outcome;
  int firstCall = 0;  // numbers of JNI calls; the step made firstCall+1 ... lastCall
  int lastCall = 0;
  std::vector<std::string> calls;  // the log's lines of these calls
};

// The delegate of the flow: measures something, throws nothing.
class QuietDelegate : public lumora::kov::KovCalibratorDelegate {
 public:
  void showColorPatch(lumora::kov::PatchRecord&) override {}
  void measure(void*, lumora::kov::PatchRecord* patch, lumora::kov::PatchRecord* result) override {
    (*result)[8] = 0.5 + 250.0 * (*patch)[4];
  }
  void progress(double) override {}
  void notifyEvent(std::string event) override { lastEvent = event; }
  std::string lastEvent;
};

// Everything that a host does, from start-up to the end of its thread: search, list, each query,
// a query that Java answers with an exception, calibrator, target, callbacks, calibration, results,
// restore, release. One flow runs on one thread; a step that fails does not keep the later ones
// from running, unless it was to make what they need.
class Flow {
 public:
  explicit Flow(kovtest::FakeJvm& fake) : jvm(fake) {}
  // Runs everything on a new thread and returns when that thread has ended and detached.
  void run();
  const std::vector<Step>& steps() const { return done; }
  // The step that made the JNI call of this number; null when none did (the thread's own end).
  const Step* stepOf(int call) const;

 private:
  void onThread();
  void queries(const lumora::Monitor& monitor);
  void calibrate();
  void step(const std::string& name, const std::function<std::string()>& operation);

  kovtest::FakeJvm& jvm;
  std::vector<Step> done;
};

// The world that the flow runs in: a monitor with two history entries of different kinds, and a
// second one whose getColorType throws.
void furnish(kovtest::KovWorld& world, kovtest::FakeJvm& jvm);

inline constexpr const char* kBrokenOutcome = "java.io.IOException: torn cable";

}  // namespace reliability

#endif  // L5KOV_TESTS_RELIABILITY_FLOW_H_
