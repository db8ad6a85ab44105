// SPDX-License-Identifier: MIT
#include "tests/support/plugin_folder.h"

#include <fstream>

namespace kovtest {
namespace {

namespace fs = std::filesystem;

void writeEmptyJar(const fs::path& plugins, const char* folder, const char* jar) {
  const fs::path external = plugins / folder / "external";
  fs::create_directories(external);
  std::ofstream(external / jar, std::ios::binary);
}

}  // namespace

PluginFolder& PluginFolder::get() {
  static PluginFolder folder;
  return folder;
}

PluginFolder::PluginFolder() : rootPath(system::makeRoot()) {
  fs::create_directories(libraryFile().parent_path());
  system::place(L5KOV_FAKE_JVM_FILE, libraryFile());
  writeEmptyJar(plugins(), "com.orva.lumora.dataImport", "dataImport.jar");
  writeEmptyJar(plugins(), "com.orva.lumora.common.monitorcom.kov", "KOVLibrary.jar");
  void* const getter = system::load(libraryFile(), fakejvm::kRuntimeSymbol);
  fake = reinterpret_cast<fakejvm::RuntimeGetter>(getter)();
}

PluginFolder::~PluginFolder() { system::removeRoot(rootPath); }

fs::path PluginFolder::plugins() const { return rootPath / "ORVA" / "Lumora5" / "plugins"; }

fs::path PluginFolder::libraryFile() const {
  return plugins() / "com.orva.lumora.jre" / system::runtimeLibrary();
}

}  // namespace kovtest
