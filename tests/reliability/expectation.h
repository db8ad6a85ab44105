// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_RELIABILITY_EXPECTATION_H_
#define L5KOV_TESTS_RELIABILITY_EXPECTATION_H_

#include <optional>
#include <string>
#include <vector>

#include "tests/fake_jvm/fake_runtime.h"
#include "tests/reliability/flow.h"

namespace reliability {

// One JNI call of a flow in which nothing failed.
struct CallSite {
  int number = 0;  // from 1
  std::string line;
  std::string step;
  std::string cleanOutcome;
  bool inNative = false;       // inside a native method, so Java stands between it and the host
  bool inTranslation = false;  // of the exception that the broken monitor throws
  bool joins = false;          // the flow joins a virtual machine that is there already

  std::string slot() const { return line.substr(0, line.find(' ')); }
  // "getModel" of "CallObjectMethodV monitor.getModel()"; empty for other calls.
  std::string member() const;
  bool callsJava() const { return line.rfind("Call", 0) == 0; }
};

std::vector<CallSite> sitesOf(const std::vector<Step>& steps);

// Whether a Java runtime lets the call fail, `quietly` by its result or by an exception. Releases,
// checks and comparisons cannot fail; some have no result, some no means to leave an exception.
bool canFail(const CallSite& site, bool quietly);

// What the operation that made the call must end with when the call fails so. Derived from what the
// operation promises, not from what it does.
class Expectation {
 public:
  static Expectation exactly(std::string text) { return {Kind::kExactly, {std::move(text)}}; }
  static Expectation oneOf(std::vector<std::string> texts) {
    return {Kind::kExactly, std::move(texts)};
  }
  static Expectation containing(std::string text) { return {Kind::kContaining, {std::move(text)}}; }
  // No exception and no failure code: null or 0 is an answer that the operation passes on.
  static Expectation noFailure() { return {Kind::kNoFailure, {}}; }

  bool holdsFor(const std::string& outcome) const;
  std::string inWords() const;

 private:
  enum class Kind { kExactly, kContaining, kNoFailure };
  Expectation(Kind kind, std::vector<std::string> texts) : kind(kind), texts(std::move(texts)) {}
  Kind kind;
  std::vector<std::string> texts;
};

Expectation expected(const CallSite& site, const fakejvm::Fault& fault);

}  // namespace reliability

#endif  // L5KOV_TESTS_RELIABILITY_EXPECTATION_H_
