// SPDX-License-Identifier: MIT
// query_work SIDE WORK TIMES: asks a monitor of the fake Java runtime that often, for counting
// instructions apart from the Java runtime's. SIDE is "library", "by_hand" (the same JNI calls) or
// "unchecked" (the least that does the work).
// query_work: names the works.
#include <gtest/gtest.h>
#include <l5kov.h>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <map>
#include <string>

#include "bench/guard/query_work.h"
#include "tests/support/fake_jvm.h"
#include "tests/support/kov_world.h"

namespace {

using Works = std::map<std::string, std::function<void()>>;

long sum = 0;

Works ofLibrary(const lumora::Monitor& monitor, const guard::GuardedCalls& guarded) {
  return {{"guarded_int", [&] { sum += guarded.number(); }},
          {"guarded_text", [&] { sum += static_cast<long>(guarded.text().size()); }},
          {"query_int", [&] { sum += monitor.getUsageTime().workingHours; }},
          {"query_text", [&] { sum += static_cast<long>(monitor.getModelName().size()); }}};
}

Works byHand(const guard::CallsByHand& calls) {
  return {{"guarded_int", [&] { sum += calls.number(); }},
          {"guarded_text", [&] { sum += static_cast<long>(calls.textInFrame().size()); }},
          {"query_int", [&] { sum += calls.numberInFrame(); }},
          {"query_text", [&] { sum += static_cast<long>(calls.textInFrame().size()); }}};
}

Works unchecked(const guard::CallsByHand& calls) {
  return {{"guarded_int", [&] { sum += calls.uncheckedNumber(); }},
          {"guarded_text", [&] { sum += static_cast<long>(calls.uncheckedText().size()); }}};
}

int run(int argc, char** argv) {
  kovtest::FakeJvm jvm;
  kovtest::KovWorld world(jvm);
  world.addMonitor();
  lumora::kov::java::Env();
  const lumora::Monitor monitor =
      lumora::kov::KovMonitorManager::get().getMonitorByName("L5-X240", "SN0001");
  const jobject raw = jvm.local("monitor");
  const guard::GuardedCalls guarded(raw);
  const guard::CallsByHand calls(jvm.env(), raw);
  std::map<std::string, Works> sides = {{"library", ofLibrary(monitor, guarded)},
                                        {"by_hand", byHand(calls)},
                                        {"unchecked", unchecked(calls)}};
  if (argc == 1) {
    for (const auto& [name, work] : sides["library"]) std::puts(name.c_str());
    return 0;
  }
  if (argc != 4 || sides[argv[1]].count(argv[2]) == 0) return 2;
  const std::function<void()>& work = sides[argv[1]][argv[2]];
  const long before = sum;
  for (long i = std::atol(argv[3]); i > 0; --i) work();
  if (argv[1] == std::string("unchecked")) {  // the fixture would have it checked and in a frame
    jvm.allowXcheckWarnings();
    jvm.takeProblems();
  }
  return sum == before ? 1 : 0;
}

}  // namespace

// 1 also where the fake runtime has seen misuse, which its fixture tells GoogleTest.
int main(int argc, char** argv) {
  const int status = run(argc, argv);
  return testing::UnitTest::GetInstance()->Failed() ? 1 : status;
}
