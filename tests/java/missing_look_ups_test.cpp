// SPDX-License-Identifier: MIT
// Each of the 129 look-ups failing in turn: start-up goes on, and calling what is missing says so.
#include <gtest/gtest.h>

#include "lumora/kov/java/java_exception.h"
#include "tests/java/golden.h"
#include "tests/java/threads.h"
#include "tests/java/wrapper_rows.h"

namespace kovtest {
namespace {

constexpr int kStartUpCalls = 2;  // search and create

// The members that a look-up takes with it when it fails: itself, or its whole class.
struct LookUp {
  explicit LookUp(const std::string& line)
      : isClass(line.rfind("FindClass ", 0) == 0), name(line.substr(line.find(' ') + 1)) {}

  bool isNeededBy(const std::string& member) const {
    return isClass ? member.rfind(name + ".", 0) == 0 : member == name;
  }

  bool isClass;
  std::string name;
};

// "" when the call succeeded.
std::string failureOf(const WrapperRow& row, FakeJvm& jvm) {
  try {
    row.run(jvm);
    return "";
  } catch (const kov::JavaException& e) {
    return e.getClassName() + ": " + e.what();
  }
}

// Starts a virtual machine on the calling thread while the look-up fails, then calls every wrapper
// method. Gives how many of them failed.
int callEverythingWithout(const LookUp& missing, int number, FakeJvm& jvm) {
  jvm->failCall(kStartUpCalls + number, fakejvm::Fault::nullResult());
  EXPECT_TRUE(kov::Env()->hasClasses());
  EXPECT_EQ(jvm->faultsApplied(), 1);
  int failed = 0;
  for (const WrapperRow& row : wrapperRows()) {
    const bool needed = missing.isNeededBy(row.member);
    EXPECT_EQ(failureOf(row, jvm), needed ? "java.lang.NoSuchMethodError: " + row.member : "");
    failed += needed ? 1 : 0;
  }
  EXPECT_EQ(jvm->pendingException(), nullptr);
  return failed;
}

TEST(MissingLookUps, EachInTurnMakesItsMembersThrowNoSuchMethodErrorAndNothingElse) {
  FakeJvm jvm;
  const Lines lookUps = golden("first_env_look_ups.txt");
  ASSERT_EQ(lookUps.size(), 129u);
  int failed = 0;
  for (std::size_t i = 0; i < lookUps.size(); ++i) {
    SCOPED_TRACE(lookUps[i]);
    jvm->reset();
    jvm->forgetVm();
    inThread(
        [&] { failed += callEverythingWithout(LookUp(lookUps[i]), static_cast<int>(i) + 1, jvm); });
    ASSERT_FALSE(HasFailure());
  }
  // Each of the 106 wrapped members twice: by itself and with its class.
  EXPECT_EQ(failed, 2 * 106);
}

TEST(MissingLookUps, AMissingCollectorMakesDeleteJavaVmThrowNoSuchMethodError) {
  FakeJvm jvm;
  jvm->missingMember("java/lang/System", "gc", "()V");
  kov::Env();
  try {
    kov::DeleteJavaVM();
    FAIL() << "no exception";
  } catch (const kov::JavaException& e) {
    EXPECT_EQ(e.getClassName(), "java.lang.NoSuchMethodError");
    EXPECT_STREQ(e.what(), "java/lang/System.gc()V");
  }
}

}  // namespace
}  // namespace kovtest
