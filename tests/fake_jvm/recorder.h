// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_FAKE_JVM_RECORDER_H_
#define L5KOV_TESTS_FAKE_JVM_RECORDER_H_

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "tests/fake_jvm/fake_runtime.h"

namespace fakejvm {

// The log, the referee's notes, and the faults to come. Guarded by the machine's mutex.
struct Recorder {
  std::vector<LogLine> lines;
  std::vector<std::string> problems;
  std::vector<std::string> xcheckWarnings;
  int callCount = 0;
  std::map<int, Fault> faults;
  int faultsApplied = 0;
  bool disturbed = false;
  std::function<void(const std::string&)> hook;

  std::vector<std::string> linesOf(int thread) const {
    std::vector<std::string> result;
    for (const LogLine& line : lines) {
      if (line.thread == thread) result.push_back(line.text);
    }
    return result;
  }
};

}  // namespace fakejvm

#endif  // L5KOV_TESTS_FAKE_JVM_RECORDER_H_
