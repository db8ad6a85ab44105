// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_SUPPORT_PLUGIN_FOLDER_H_
#define L5KOV_TESTS_SUPPORT_PLUGIN_FOLDER_H_

#include <filesystem>

#include "tests/fake_jvm/fake_runtime.h"

namespace kovtest {

// The application-data root of this process, laid out on first use with the fake Java runtime and
// two empty jars, and removed when the process ends. One per process, since libl5kov loads the
// runtime once.
class PluginFolder {
 public:
  static PluginFolder& get();

  const std::filesystem::path& root() const { return rootPath; }
  std::filesystem::path plugins() const;
  std::filesystem::path libraryFile() const;
  // The runtime inside libraryFile(); the same instance that libl5kov gets.
  fakejvm::Runtime& runtime() { return *fake; }

 private:
  PluginFolder();
  ~PluginFolder();

  std::filesystem::path rootPath;
  fakejvm::Runtime* fake;
};

// What differs between systems (plugin_system_<system>.cpp).
namespace system {

// Below plug-ins: "jre/lib/server/libjvm.so" or its like.
std::filesystem::path runtimeLibrary();
// Makes a folder that libl5kov will take for the machine-wide application-data folder.
std::filesystem::path makeRoot();
void removeRoot(const std::filesystem::path& root);
// Makes libl5kov take this folder for it; where the system's own cannot be told, throws.
void setRoot(const std::filesystem::path& root);
// Puts the library where libl5kov looks for it; a link where the system loads both as one.
void place(const std::filesystem::path& library, const std::filesystem::path& at);
// Throws std::runtime_error with the system's reason.
void* load(const std::filesystem::path& library, const char* symbol);
// The symbol of a library that the process has loaded, or null.
void* loadedSymbol(const std::filesystem::path& library, const char* symbol);

}  // namespace system

}  // namespace kovtest

#endif  // L5KOV_TESTS_SUPPORT_PLUGIN_FOLDER_H_
