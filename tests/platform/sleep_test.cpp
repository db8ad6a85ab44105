// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <pthread.h>
#include <signal.h>

#include <chrono>
#include <thread>

#include "platform/platform.h"

namespace lumora::platform {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

TEST(PosixSleep, LastsAtLeastAsLongAsAsked) {
  const auto start = Clock::now();
  sleepMilliseconds(50);
  EXPECT_GE(Clock::now() - start, milliseconds(50));
}

TEST(PosixSleep, OfZeroReturns) { sleepMilliseconds(0); }

TEST(PosixSleep, IsNotCutShortByASignal) {
  struct sigaction action = {};
  action.sa_handler = [](int) {};
  ASSERT_EQ(::sigaction(SIGUSR1, &action, nullptr), 0);
  const pthread_t sleeper = ::pthread_self();
  std::thread disturber([sleeper] {
    for (int i = 0; i < 5; ++i) {
      std::this_thread::sleep_for(milliseconds(20));
      ::pthread_kill(sleeper, SIGUSR1);
    }
  });
  const auto start = Clock::now();
  sleepMilliseconds(200);
  const auto lasted = Clock::now() - start;
  disturber.join();
  EXPECT_GE(lasted, milliseconds(200));
}

}  // namespace
}  // namespace lumora::platform
