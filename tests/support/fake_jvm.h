// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_SUPPORT_FAKE_JVM_H_
#define L5KOV_TESTS_SUPPORT_FAKE_JVM_H_

#include <filesystem>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "tests/fake_jvm/fake_runtime.h"

namespace kovtest {

using Lines = std::vector<std::string>;

// The calling thread's JNI log, read when it is compared: EXPECT_EQ(jvm.log, (Lines{...})).
class Log {
 public:
  explicit Log(fakejvm::Runtime& fake) : runtime(fake) {}

  Lines lines() const { return runtime.log(); }
  // Lines that begin so: startingWith("FindClass ").
  Lines startingWith(const std::string& prefix) const;
  // Only the calls of Java members: "monitor.getModel()", without the slots' names.
  Lines javaCalls() const;
  bool contains(const std::string& line) const;
  // Where the line stands (0 is the first), or -1.
  int indexOf(const std::string& line) const;
  void clear() { runtime.clearLog(); }

  friend bool operator==(const Log& log, const Lines& expected) { return log.lines() == expected; }
  friend void PrintTo(const Log& log, std::ostream* out);

 private:
  fakejvm::Runtime& runtime;
};

// Lays a plug-in folder with the fake Java runtime into a temporary application-data root, points
// L5KOV_COMMON_APPDATA at it, and resets the runtime. Make it first in a test: what the library
// holds must be released before its destructor, which fails the test when
// - the runtime recorded a problem (misuse, an unscripted call or slot),
// - -Xcheck:jni would have warned (unless the test made something fail),
// - global references, UTF characters, local frames or a pending exception are left.
class FakeJvm {
 public:
  FakeJvm();
  ~FakeJvm();
  FakeJvm(const FakeJvm&) = delete;
  FakeJvm& operator=(const FakeJvm&) = delete;

  fakejvm::Runtime& runtime;
  fakejvm::Runtime* operator->() { return &runtime; }
  Log log;

  // The value of L5KOV_COMMON_APPDATA: native separators, none at the end.
  const std::filesystem::path& root() const;
  // root()/ORVA/Lumora5/plugins
  std::filesystem::path plugins() const;
  // The file that libl5kov loads.
  std::filesystem::path libraryFile() const;

  // --- shorthands ---
  fakejvm::ObjectRef object(const std::string& name, const std::string& className) {
    return runtime.object(name, className);
  }
  // A local reference of the calling thread to a named object; attaches the thread if need be.
  jobject local(const std::string& name);
  // Attaches the calling thread (creating the fake virtual machine if there is none) and gives
  // its environment, for tests below the exported surface.
  JNIEnv* env();
  void throwPending(const std::string& message,
                    const std::string& className = "java/lang/IllegalStateException") {
    runtime.throwPending(className, message);
  }

  // --- what the destructor is to tolerate ---
  void expectGlobalRefs(int left) { globalRefsLeft = left; }
  void allowPendingException() { pendingAllowed = true; }
  void allowXcheckWarnings() { xcheckAllowed = true; }
  // Hands over the problems so far, so that a test can compare them.
  Lines takeProblems() { return runtime.takeProblems(); }

 private:
  int globalRefsLeft = 0;
  bool pendingAllowed = false;
  bool xcheckAllowed = false;
};

}  // namespace kovtest

#endif  // L5KOV_TESTS_SUPPORT_FAKE_JVM_H_
