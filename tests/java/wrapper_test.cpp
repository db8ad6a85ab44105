// SPDX-License-Identifier: MIT
// Each wrapper method makes exactly the call of its row.
#include <gtest/gtest.h>

#include <set>

#include "tests/java/golden.h"
#include "tests/java/wrapper_rows.h"

namespace kovtest {
namespace {

class Wrapper : public testing::TestWithParam<WrapperRow> {};

TEST_P(Wrapper, MakesExactlyTheCallOfItsRow) {
  FakeJvm jvm;
  const Outcome outcome = GetParam().run(jvm);
  EXPECT_EQ(outcome.lines, GetParam().expected);
  EXPECT_EQ(outcome.result, GetParam().result);
}

INSTANTIATE_TEST_SUITE_P(Rows, Wrapper, testing::ValuesIn(wrapperRows()),
                         [](const auto& row) { return row.param.testName(); });

// Together with what is bound and has no wrapper, the rows are the whole catalogue.
TEST(WrapperRows, CoverEveryBoundMember) {
  std::multiset<std::string> members{
      "java/lang/Class.getName()Ljava/lang/String;",
      "java/lang/Long.<init>(J)V",
      "java/lang/Long.longValue()J",
      "java/lang/System.gc()V",
      "java/lang/Throwable.<init>()V",
      "java/lang/Throwable.getMessage()Ljava/lang/String;",
  };
  for (const WrapperRow& row : wrapperRows()) members.insert(row.member);
  std::multiset<std::string> bound;
  for (const std::string& line : golden("first_env_look_ups.txt")) {
    if (line.rfind("FindClass", 0) != 0) bound.insert(line.substr(line.find(' ') + 1));
  }
  EXPECT_EQ(members, bound);
}

}  // namespace
}  // namespace kovtest
