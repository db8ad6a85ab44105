// SPDX-License-Identifier: MIT
#include "system/interrupts.h"

#include <signal.h>

#include <atomic>
#include <thread>

namespace kovctl::sys {
namespace {

std::atomic<int> count{0};
static_assert(std::atomic<int>::is_always_lock_free, "written to inside a signal handler");

extern "C" void countInterrupt(int) {
  count.fetch_add(1);
}

}  // namespace

void catchInterrupts() {
  struct sigaction action {};
  action.sa_handler = countInterrupt;
  action.sa_flags = SA_RESTART;
  sigemptyset(&action.sa_mask);
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
    struct sigaction before {};
    ::sigaction(number, nullptr, &before);
    // One that the caller has switched off (nohup) stays off.
    if (before.sa_handler != SIG_IGN) ::sigaction(number, &action, nullptr);
  }
}

int interruptCount() {
  return count.load();
}

// Polled: a condition cannot be signalled from a handler, and nobody notices 20 ms.
bool waitForInterrupt(int seen, std::chrono::milliseconds time) {
  const auto end = std::chrono::steady_clock::now() + time;
  while (count.load() <= seen) {
    const auto left = end - std::chrono::steady_clock::now();
    if (left <= std::chrono::steady_clock::duration::zero()) return false;
    std::this_thread::sleep_for(
        std::min<std::chrono::steady_clock::duration>(left, std::chrono::milliseconds(20)));
  }
  return true;
}

}  // namespace kovctl::sys
