// SPDX-License-Identifier: MIT
#include "system/interrupts.h"

#include <signal.h>

#include <atomic>
#include <thread>
#include <vector>

namespace kovctl::sys {
namespace {

std::atomic<int> count{0};
static_assert(std::atomic<int>::is_always_lock_free, "written to inside a signal handler");

extern "C" void countInterrupt(int) {
  count.fetch_add(1);
}

void handle(int number, void (*handler)(int)) {
  struct sigaction action {};
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART;
  sigemptyset(&action.sa_mask);
  ::sigaction(number, &action, nullptr);
}

// One that the caller has switched off (nohup) stays off.
std::vector<int> interruptsInUse() {
  std::vector<int> numbers;
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
    struct sigaction action {};
    ::sigaction(number, nullptr, &action);
    if (action.sa_handler != SIG_IGN) numbers.push_back(number);
  }
  return numbers;
}

// Blocked on this thread, and ignored as the Java runtime sees it: what it finds ignored it neither
// handles nor unblocks on its threads. A blocked signal waits even so, until it is unblocked with
// the counting handler in place.
class HeldInterrupts {
 public:
  HeldInterrupts() : numbers(interruptsInUse()) {
    sigset_t held;
    sigemptyset(&held);
    for (const int number : numbers) sigaddset(&held, number);
    ::pthread_sigmask(SIG_BLOCK, &held, &before);
    for (const int number : numbers) handle(number, SIG_IGN);
  }
  HeldInterrupts(const HeldInterrupts&) = delete;
  HeldInterrupts& operator=(const HeldInterrupts&) = delete;
  ~HeldInterrupts() {
    for (const int number : numbers) handle(number, countInterrupt);
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
  }

 private:
  const std::vector<int> numbers;
  sigset_t before;
};

}  // namespace

void catchInterrupts(const std::function<void()>& startJava) {
  const HeldInterrupts held;
  startJava();
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
