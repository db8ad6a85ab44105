// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_MONITOR_NAME_TABLE_FIXTURE_H_
#define L5KOV_TESTS_MONITOR_NAME_TABLE_FIXTURE_H_

#include <filesystem>
#include <fstream>
#include <string>

#include "tests/monitor/monitor_fixture.h"

namespace kovtest {

// The name table in the test's application-data folder; missing at first.
class NameTable : public MonitorTest {
 protected:
  NameTable() { std::filesystem::create_directories(file.parent_path()); }
  ~NameTable() override {
    std::error_code ignored;
    std::filesystem::remove_all(file, ignored);
  }

  void write(const std::string& text) {
    std::ofstream(file, std::ios::binary | std::ios::trunc) << text;
  }
  // Of a monitor that reports this model.
  std::string packageOf(const std::string& model) {
    objects.monitor->setField("model", model);
    jvm->script(kLibraryClass, "getMonitor", fakejvm::returns(objects.monitor));
    return lumora::kov::KovMonitorManager::get().getMonitorByName("", "").getPackageName();
  }

  const std::filesystem::path file =
      jvm.root() / "ORVA" / "Lumora5" / "Data" / "Profile" / "KovMonitorName.xml";
};

// <PackageInfo> of one package.
inline std::string package(const std::string& name, const std::string& models) {
  return "<PackageInfo><PackageName>" + name + "</PackageName>" + models + "</PackageInfo>";
}
inline std::string model(const std::string& name) {
  return "<ModelInfo><ModelName>" + name + "</ModelName></ModelInfo>";
}
inline std::string table(const std::string& packages) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<KovMonitorName>" + packages +
         "</KovMonitorName>\n";
}

}  // namespace kovtest

#endif  // L5KOV_TESTS_MONITOR_NAME_TABLE_FIXTURE_H_
