// SPDX-License-Identifier: MIT
// Name table files: any bytes give a package or "noPackage", and twice the same.
#include <stdlib.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

#include "fuzz/require.h"
#include "monitor/name_table.h"

namespace {

namespace fs = std::filesystem;

class Folder {
 public:
  Folder() {
    std::string pattern = (fs::temp_directory_path() / "l5kov-fuzz-XXXXXX").string();
    require(::mkdtemp(pattern.data()) != nullptr, "a folder");
    root = pattern;
    fs::create_directories(file().parent_path());
    ::setenv("L5KOV_COMMON_APPDATA", root.c_str(), 1);
  }
  ~Folder() { fs::remove_all(root); }
  fs::path file() const { return root / "ORVA/Lumora5/Data/Profile/KovMonitorName.xml"; }

 private:
  fs::path root;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const Folder folder;
  const std::string text(reinterpret_cast<const char*>(data), size);
  std::ofstream(folder.file(), std::ios::binary | std::ios::trunc) << text;
  for (const char* model : {"", "L5-X240", "OR-C321", "A&B"}) {
    const std::string package = lumora::kov::packageOfModel(model);
    require(package == lumora::kov::packageOfModel(model), "the same answer twice");
    // Element names cannot be written in any other way than by their letters.
    const bool hasTable = text.find("KovMonitorName") != std::string::npos;
    require(hasTable || package == "noPackage", "a package without a table");
  }
  return 0;
}
