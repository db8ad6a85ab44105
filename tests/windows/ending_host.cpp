// SPDX-License-Identifier: MIT
// A host that ends in the way that its argument names:
//   threads             1,000 threads attach, call and end while Java starts and stops threads
//   return, exit, ExitProcess             from the main thread, with a virtual machine
//   ...-inside          while a second thread is inside Java
//   ...-without         without a virtual machine
#include <l5kov.h>
#include <windows.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

namespace {

using lumora::Monitor;
using lumora::kov::KovMonitorManager;

// A static handle: it is released while the process ends.
std::vector<Monitor>& monitors() {
  static std::vector<Monitor> all;
  return all;
}

void findMonitors() {
  KovMonitorManager::get().find();
  monitors() = KovMonitorManager::get().getMonitors();
}

// Searches go on meanwhile. The simulated one starts no Java thread of its own.
int runThreads() {
  findMonitors();
  std::atomic<bool> done{false};
  std::atomic<int> answered{0};
  std::thread searching([&done] {
    while (!done) KovMonitorManager::get().find();
  });
  constexpr int kThreads = 1000;
  constexpr int kAtOnce = 10;
  for (int i = 0; i < kThreads / kAtOnce; ++i) {
    std::vector<std::thread> threads;
    for (int k = 0; k < kAtOnce; ++k) {
      threads.emplace_back([&answered] {
        if (!monitors().at(0).getModelName().empty()) ++answered;
      });
    }
    for (std::thread& thread : threads) thread.join();
  }
  done = true;
  searching.join();
  if (answered != kThreads) {
    std::printf("wrong: %d answers\n", answered.load());
    return 1;
  }
  std::printf("ready\n");
  return 0;
}

bool endsWith(const std::string& text, const std::string& end) {
  return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

void stayInsideJava() {
  static std::atomic<bool> inside{false};
  std::thread([] {
    for (;;) {
      KovMonitorManager::get().getMonitors();
      inside = true;
    }
  }).detach();
  while (!inside) ::Sleep(1);
}

}  // namespace

int main(int count, char** arguments) {
  const std::string how = count > 1 ? arguments[1] : "";
  if (how == "threads") return runThreads();
  if (!endsWith(how, "-without")) findMonitors();
  if (endsWith(how, "-inside")) stayInsideJava();
  std::printf("ready\n");
  std::fflush(stdout);
  if (how.rfind("exit", 0) == 0) std::exit(0);
  if (how.rfind("ExitProcess", 0) == 0) ::ExitProcess(0);
  return 0;
}
