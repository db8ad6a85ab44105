// SPDX-License-Identifier: MIT
// Name table files: any bytes give the package that a plain walk over the same bytes gives.
#include <tinyxml2.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>

#include "fuzz/require.h"
#include "monitor/name_table.h"
#include "tests/real/system.h"

namespace {

namespace fs = std::filesystem;

class Folder {
 public:
  Folder() {
    fs::create_directories(file().parent_path());
    realtest::system::setVariable("L5KOV_COMMON_APPDATA", root.string());
  }
  ~Folder() { fs::remove_all(root); }
  fs::path file() const { return root / "ORVA/Lumora5/Data/Profile/KovMonitorName.xml"; }

 private:
  const fs::path root = realtest::system::makeFolder();
};

std::string textOf(const tinyxml2::XMLElement* element) {
  return element == nullptr || element->GetText() == nullptr ? "" : element->GetText();
}

// Every model with its package, in the order of the file, so that the last one stays. Nothing when
// the bytes are not XML from end to end.
std::map<std::string, std::string> plainTable(const std::string& text) {
  std::map<std::string, std::string> table;
  tinyxml2::XMLDocument document;
  if (document.Parse(text.data(), text.size()) != tinyxml2::XML_SUCCESS) return table;
  const auto* root = document.FirstChildElement("KovMonitorName");
  if (root == nullptr) return table;
  for (const auto* package = root->FirstChildElement("PackageInfo"); package != nullptr;
       package = package->NextSiblingElement("PackageInfo")) {
    const std::string name = textOf(package->FirstChildElement("PackageName"));
    for (const auto* info = package->FirstChildElement("ModelInfo"); info != nullptr;
         info = info->NextSiblingElement("ModelInfo")) {
      table[textOf(info->FirstChildElement("ModelName"))] = name;
    }
  }
  return table;
}

std::string expectedPackage(const std::map<std::string, std::string>& table,
                            const std::string& model) {
  const auto entry = table.find(model);
  return entry == table.end() ? "noPackage" : entry->second;
}

void checkModel(const std::map<std::string, std::string>& table, const std::string& model) {
  require(lumora::kov::packageOfModel(model) == expectedPackage(table, model), model.c_str());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const Folder folder;
  const std::string text(reinterpret_cast<const char*>(data), size);
  std::ofstream(folder.file(), std::ios::binary | std::ios::trunc) << text;
  const std::map<std::string, std::string> table = plainTable(text);
  for (const char* model : {"", "L5-X240", "l5-x240", "A&B"}) checkModel(table, model);
  for (const auto& [model, package] : table) checkModel(table, model);
  return 0;
}
