// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_MONITOR_MONITOR_FIXTURE_H_
#define L5KOV_TESTS_MONITOR_MONITOR_FIXTURE_H_

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <typeinfo>

#include "l5kov.h"
#include "tests/monitor/jni_lines.h"
#include "tests/support/kov_world.h"

namespace kovtest {

// One monitor in the maker's library, and Java running. A handle that a test takes must be gone at
// its end.
class MonitorTest : public testing::Test {
 protected:
  MonitorTest() {
    lumora::kov::java::Env();
    jvm.log.clear();
  }

  // The monitor's handle; the log begins after it.
  lumora::Monitor handle() {
    lumora::Monitor made =
        lumora::kov::KovMonitorManager::get().getMonitorByName("L5-X240", "SN0001");
    jvm.log.clear();
    return made;
  }

  FakeJvm jvm;
  KovWorld world{jvm};
  MonitorObjects objects = world.addMonitor();
};

// The Java exception that `action` throws, as "class: message"; "nothing" when it throws none.
template <class Action>
std::string javaExceptionOf(Action action) {
  try {
    action();
  } catch (const lumora::kov::java::JavaException& e) {
    return e.getClassName() + ": " + e.what();
  }
  return "nothing";
}

// The text of the std::logic_error that `action` throws, and of no other.
template <class Action>
std::string logicErrorOf(Action action) {
  try {
    action();
  } catch (const std::logic_error& e) {
    return typeid(e) == typeid(std::logic_error) ? e.what() : "another exception";
  }
  return "nothing";
}

}  // namespace kovtest

#endif  // L5KOV_TESTS_MONITOR_MONITOR_FIXTURE_H_
