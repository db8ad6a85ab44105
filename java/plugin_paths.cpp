// SPDX-License-Identifier: MIT
#include "java/plugin_paths.h"

#include <algorithm>
#include <utility>

#include "platform/platform.h"

namespace lumora::kov::java {
namespace {

constexpr std::string_view kPluginsFolder = "ORVA/Lumora5/plugins";
constexpr std::string_view kJreFolder = "com.orva.lumora.jre";
constexpr std::string_view kDataImportFolder = "com.orva.lumora.dataImport";
constexpr std::string_view kMonitorFolder = "com.orva.lumora.common.monitorcom.kov";

}  // namespace

std::string normalizePath(std::string text) {
  if (!text.empty() && (text.back() == '/' || text.back() == '\\')) text.pop_back();
  std::replace(text.begin(), text.end(), '/', '\\');
  return text;
}

std::string joinPath(std::string base, std::string_view piece) {
  if (piece.starts_with('\\')) piece.remove_prefix(1);
  base += '\\';
  base += piece;
  return normalizePath(std::move(base));
}

std::string joinPath(std::string base, std::initializer_list<std::string_view> pieces) {
  for (const std::string_view piece : pieces) base = joinPath(std::move(base), piece);
  return base;
}

std::string commonAppDataFolder() { return platform::commonAppDataFolder(); }

std::string pluginsFolder() {
  return joinPath(normalizePath(commonAppDataFolder()), kPluginsFolder);
}

std::string jvmLibraryPath(const std::string& plugins) {
  return joinPath(plugins, {kJreFolder, "jre", "bin", "server", "jvm.dll"});
}

std::string pluginJarEntry(const std::string& plugins, std::string_view folder,
                           std::string_view jarEntry) {
  return joinPath(plugins, {folder, "external", jarEntry});
}

std::string jreBinEntry(const std::string& plugins) {
  return joinPath(plugins, {kJreFolder, "jre", "bin;"});
}

// Kept: the data-import jar first, so its classes win over like-named ones of the library jar; each
// entry brings its own ";", so the option ends in one.
std::string classPathOption(const std::string& plugins) {
  return "-Djava.class.path=" + pluginJarEntry(plugins, kDataImportFolder, "dataImport.jar;") +
         pluginJarEntry(plugins, kMonitorFolder, "KOVLibrary.jar;");
}

// Where the Java side's native-access library looks for libraries. Kept: ends in ";" too.
std::string nativeLibraryPathOption(const std::string& plugins) {
  return "-Djna.library.path=" + jreBinEntry(plugins);
}

}  // namespace lumora::kov::java
