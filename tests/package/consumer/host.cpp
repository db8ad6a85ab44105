// SPDX-License-Identifier: MIT
#include <l5kov.h>

#include <iostream>
#include <stdexcept>

int main() {
  pocketjson::Value target;
  target["LmaxValue"] = "250.5";
  std::cout << target["LmaxValue"].asDouble() << " cd/m2, ";
  try {
    lumora::kov::KovMonitorManager::get().find();
  } catch (const std::runtime_error& e) {
    std::cout << e.what() << '\n';
    return 0;
  }
  return 1;
}
