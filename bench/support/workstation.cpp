// SPDX-License-Identifier: MIT
#include "bench/support/workstation.h"

#include <stdlib.h>

#include <fstream>
#include <stdexcept>

namespace bench {

Workstation::Workstation() {
  std::string pattern = (std::filesystem::temp_directory_path() / "kov-bench-XXXXXX").string();
  if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
  home = pattern;
  ::setenv("KOV_SIM_HOME", home.c_str(), 1);
}

Workstation::~Workstation() { std::filesystem::remove_all(home); }

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
