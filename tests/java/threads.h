// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_JAVA_THREADS_H_
#define L5KOV_TESTS_JAVA_THREADS_H_

#include <gtest/gtest.h>

#include <barrier>
#include <string>
#include <thread>
#include <vector>

#include "tests/support/fake_jvm.h"

namespace kovtest {

// Runs the body on a thread of its own and waits for the thread's end.
template <class Body>
void inThread(Body body) {
  std::thread(body).join();
}

// Runs the body on so many threads, which all begin at the same moment.
template <class Body>
void atOnce(int count, Body body) {
  std::barrier<> start(count);
  std::vector<std::thread> threads;
  for (int i = 0; i < count; ++i) {
    threads.emplace_back([&] {
      start.arrive_and_wait();
      body();
    });
  }
  for (std::thread& thread : threads) thread.join();
}

// The text of the exception that the body throws; a text of its own when it throws another kind
// or none. Derived classes count as another kind: callers tell std::runtime_error from
// std::range_error.
template <class Exception, class Body>
std::string messageOf(Body body) {
  try {
    body();
  } catch (const std::exception& e) {
    return typeid(e) == typeid(Exception) ? e.what()
                                          : std::string("(another exception) ") + e.what();
  }
  return "(no exception)";
}

// The lines of all threads.
inline Lines allLines(FakeJvm& jvm) {
  Lines lines;
  for (const fakejvm::LogLine& line : jvm->logOfAllThreads()) lines.push_back(line.text);
  return lines;
}
inline int countOf(FakeJvm& jvm, const std::string& line) {
  int count = 0;
  for (const std::string& text : allLines(jvm)) count += text == line ? 1 : 0;
  return count;
}
inline int createdJavaVms(FakeJvm& jvm) { return countOf(jvm, "JNI_CreateJavaVM"); }

}  // namespace kovtest

#endif  // L5KOV_TESTS_JAVA_THREADS_H_
