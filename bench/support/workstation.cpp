// SPDX-License-Identifier: MIT
#include "bench/support/workstation.h"

#include <signal.h>
#include <stdlib.h>
#include <unistd.h>

#include <cerrno>
#include <fstream>
#include <stdexcept>

namespace bench {
namespace {

namespace fs = std::filesystem;

constexpr const char* kBeginning = "kov-bench-";

// "kov-bench-PROCESS-XXXXXX"; 0 for any other name.
pid_t ownerOf(const std::string& name) {
  const std::string beginning = kBeginning;
  if (name.rfind(beginning, 0) != 0) return 0;
  char* end = nullptr;
  const long owner = std::strtol(name.c_str() + beginning.size(), &end, 10);
  return *end == '-' ? static_cast<pid_t>(owner) : 0;
}

// A process that is ended from outside, or by an exception, cannot remove its folder.
void removeWhatTheDeadLeft() {
  std::error_code ignored;  // another process may be removing the same
  for (const fs::path& folder : fs::directory_iterator(fs::temp_directory_path(), ignored)) {
    const pid_t owner = ownerOf(folder.filename().string());
    if (owner > 0 && ::kill(owner, 0) != 0 && errno == ESRCH) fs::remove_all(folder, ignored);
  }
}

}  // namespace

Workstation::Workstation() {
  removeWhatTheDeadLeft();
  const std::string name = kBeginning + std::to_string(::getpid()) + "-XXXXXX";
  std::string pattern = (fs::temp_directory_path() / name).string();
  if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
  home = pattern;
  ::setenv("KOV_SIM_HOME", home.c_str(), 1);
}

Workstation::~Workstation() { fs::remove_all(home); }

void Workstation::settle(const std::string& settings, const std::string& faults) {
  if (settings + '\f' + faults == current) return;
  std::ofstream(home / "simulator.properties")
      << "search.ms = 0\nnoise = off\nstate = none\n" << settings << '\n';
  std::ofstream(home / "faults.properties") << faults;
  lumora::kov::KovMonitorManager::get().find();
  current = settings + '\f' + faults;
}

void Workstation::settleWithMonitors(long count) {
  std::string settings = "extra.monitors = " + std::to_string(count) + '\n';
  for (const char* model : {"OR-C321", "OR-M215", "OR-C240", "OR-C190"}) {
    settings += std::string("monitor.") + model + ".connected = off\n";
  }
  settle(settings);
}

Workstation& workstation() {
  static Workstation one;
  return one;
}

const lumora::Monitor& colourMonitor() {
  static const lumora::Monitor monitor = [] {
    workstation().settle("");
    return lumora::kov::KovMonitorManager::get().getMonitorByName(kModel, kSerial);
  }();
  return monitor;
}

}  // namespace bench
