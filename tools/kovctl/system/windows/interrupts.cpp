// SPDX-License-Identifier: MIT
#include "system/interrupts.h"

#include <windows.h>

#include <atomic>
#include <condition_variable>
#include <mutex>

namespace kovctl::sys {
namespace {

std::mutex mutex;
std::condition_variable came;
int count = 0;

// On a thread that the system makes for it. Closing the console or the session ends the process
// when this returns, so it stays until the program has put everything back and ends by itself.
BOOL WINAPI countInterrupt(DWORD kind) {
  {
    const std::lock_guard lock(mutex);
    ++count;
  }
  came.notify_all();
  if (kind != CTRL_C_EVENT && kind != CTRL_BREAK_EVENT) ::Sleep(INFINITE);
  return TRUE;
}

}  // namespace

// The handler that was set last is asked first.
void catchInterrupts(const std::function<void()>& startJava) {
  ::SetConsoleCtrlHandler(countInterrupt, TRUE);
  startJava();
  ::SetConsoleCtrlHandler(countInterrupt, TRUE);
}

int interruptCount() {
  const std::lock_guard lock(mutex);
  return count;
}

bool waitForInterrupt(int seen, std::chrono::milliseconds time) {
  std::unique_lock lock(mutex);
  return came.wait_for(lock, time, [seen] { return count > seen; });
}

}  // namespace kovctl::sys
