// SPDX-License-Identifier: MIT
// What must not get worse unnoticed: allocations, which are counted, and times beside the same work
// by hand in the same process, with a margin that no noise of the machine uses up. docs/performance.md
// has the measurements themselves.
#include <gtest/gtest.h>

#include <string>
#include <thread>

#include "bench/guard/guarded_work.h"
#include "bench/java_calls/raw_java.h"
#include "bench/support/workstation.h"

namespace {

using bench::checked;
using bench::colourMonitor;
using bench::raw;
using guard::allocationsOf;
using guard::ratioOf;
using lumora::kov::KovMonitorManager;
using pocketjson::Value;

constexpr const char* kKeys[] = {
    "LmaxValue", "LminValue", "IsUsedMeasurementLmin", "IsUsedLamb", "ColorTemperatureType",
    "ColorXValue", "ColorYValue", "DisplayFunctionType", "IsUsedExternalSensors",
    "numberOfGraylevels", "measureBacklightResponse", "ExpValue"};

Value target() {
  Value value;
  for (const char* key : kKeys) value[key] = 0.5;
  return value;
}

TEST(Allocations, OfValues) {
  const Value value = target();
  EXPECT_EQ(allocationsOf([&] { return Value(value); }), 0);
  EXPECT_EQ(allocationsOf([&] { return value["measureBacklightResponse"].asDouble(); }), 0);
  EXPECT_EQ(allocationsOf([&] { return value["no such member, and a long name"].asInt(); }), 0);
  // Two containers; the nodes lie in them, and the names in the nodes.
  EXPECT_LE(allocationsOf([] {
              Value result;
              result["calibrationTarget"]["lmin"] = 0.5;
              return result;
            }),
            2);
  // A container, with one node in it, and eleven.
  EXPECT_LE(allocationsOf([&] {
              Value copy = value;
              copy["LmaxValue"] = 300.0;
              return copy;
            }),
            12);
}

TEST(Allocations, OfMonitorsGrowInStep) {
  colourMonitor();
  for (const long count : {1L, 100L, 10000L}) {
    bench::workstation().settleWithMonitors(count);
    const long made = allocationsOf([] { return KovMonitorManager::get().getMonitors(); });
    // Two a handle: the shared reference, and the control with its count.
    EXPECT_LE(made, 2 * count + 8) << count;
  }
}

TEST(Allocations, OfAHistoryGrowInStep) {
  for (const long count : {100L, 1000L, 10000L}) {
    bench::workstation().settle("history.limit = 20000\nextra.history = " + std::to_string(count));
    const long made = allocationsOf([] { return colourMonitor().getExtractCalibrationData(); });
    // Seven an entry: the runtime's own of five texts, and what does not lie inside a string.
    EXPECT_LE(made, 7 * count + 100) << count;
  }
}

TEST(Allocations, OfAThreadsEnvironment) {
  colourMonitor();
  long made = 0;
  std::thread([&made] {
    made = static_cast<long>(bench::memoryOf(lumora::kov::java::Env).allocations);
  }).join();
  EXPECT_LE(made, 36);  // most of them the Java runtime's own
}

TEST(Allocations, OfAQueryAreItsResultOnly) {
  const lumora::Monitor& monitor = colourMonitor();
  bench::workstation().settle("");
  EXPECT_EQ(allocationsOf([&] { return monitor.getUsageTime(); }), 0);
  EXPECT_LE(allocationsOf([&] { return monitor.getModelName(); }), 1);  // the runtime's own copy
}

TEST(Ratio, OfAQuery) {
  const lumora::Monitor& monitor = colourMonitor();
  bench::workstation().settle("");
  const bench::RawJava& r = raw();
  const double ratio = ratioOf([&] { return monitor.getModelName().size(); },
                               [&] {
                                 r.env->PushLocalFrame(32);
                                 const std::string text = bench::copyOfText(
                                     r.env, checked(r.env, [&] {
                                       return r.env->CallObjectMethod(r.monitor, r.getModel);
                                     }));
                                 r.env->PopLocalFrame(nullptr);
                                 return text.size();
                               },
                               2000);
  EXPECT_LT(ratio, 1.5);
}

TEST(Ratio, OfAListOfMonitors) {
  colourMonitor();
  bench::workstation().settleWithMonitors(1000);
  const bench::RawJava& r = raw();
  const double ratio = ratioOf([] { return KovMonitorManager::get().getMonitors().size(); },
                               [&] {
                                 r.env->PushLocalFrame(1024);
                                 const jobject list = checked(r.env, [&] {
                                   return r.env->CallObjectMethod(r.monitorLibrary, r.getMonitors);
                                 });
                                 for (jint i = 0; i < 1000; ++i) {
                                   r.env->DeleteGlobalRef(r.env->NewGlobalRef(checked(r.env, [&] {
                                     return r.env->CallObjectMethod(list, r.listGet, i);
                                   })));
                                 }
                                 r.env->PopLocalFrame(nullptr);
                                 return 0;
                               },
                               3);
  EXPECT_LT(ratio, 3.0);
}

TEST(Growth, OfAListOfMonitorsIsLinear) {
  colourMonitor();
  const auto secondsOf = [](long count) {
    bench::workstation().settleWithMonitors(count);
    double best = 1e9;
    for (int i = 0; i < 9; ++i) {
      const double start = guard::threadSeconds();
      KovMonitorManager::get().getMonitors();
      best = std::min(best, guard::threadSeconds() - start);
    }
    return best;
  };
  const double thousand = secondsOf(1000);
  EXPECT_LT(secondsOf(10000), 30 * thousand);
}

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  bench::workstation();
  return RUN_ALL_TESTS();
}
