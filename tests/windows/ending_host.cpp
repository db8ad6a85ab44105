// SPDX-License-Identifier: MIT
// A host that ends in the way that its argument names:
//   threads, threads-released, threads-alone             1,000 threads end; see thread_ends.h
//   return, exit, ExitProcess             from the main thread, with a virtual machine
//   ...-inside          while a second thread is inside Java
//   ...-attached        on a second thread, which has joined the virtual machine (no return there)
//   ...-without         without a virtual machine, which was asked for in vain
#include <l5kov.h>
#include <windows.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "tests/windows/thread_ends.h"
#include "tests/windows/wine_fls_lock.h"

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

bool javaFails() {
  try {
    lumora::kov::java::Env();
  } catch (const std::runtime_error&) {
    return true;
  }
  return false;
}

int endProcess(const std::string& how) {
  std::printf("ready\n");
  std::fflush(stdout);
  if (how.rfind("exit", 0) == 0) std::exit(0);
  if (how.rfind("ExitProcess", 0) == 0) ::ExitProcess(0);
  return 0;
}

// The thread has an environment that its end would detach. It never comes back from endProcess().
int endOnAThread(const std::string& how) {
  std::thread([how] {
    if (KovMonitorManager::get().getMonitors().empty()) std::printf("wrong: no monitors\n");
    endProcess(how);
  }).join();
  std::printf("wrong: the process goes on\n");
  return 1;
}

}  // namespace

int main(int count, char** arguments) {
  const std::string how = count > 1 ? arguments[1] : "";
  if (endsWith(how, "-without")) {
    if (!javaFails()) std::printf("wrong: there is a virtual machine\n");
    return endProcess(how);
  }
  wine_fls_lock::before();
  findMonitors();
  wine_fls_lock::after();
  if (how == "threads") return endThreads(monitors().at(0), ThreadEnds::kPlain);
  if (how == "threads-released") return endThreads(monitors().at(0), ThreadEnds::kReleased);
  if (how == "threads-alone") return endThreads(monitors().at(0), ThreadEnds::kAlone);
  if (endsWith(how, "-attached")) return endOnAThread(how);
  if (endsWith(how, "-inside")) stayInsideJava();
  return endProcess(how);
}
