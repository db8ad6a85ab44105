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

void dropTrailingSeparator(std::string& text) {
  if (!text.empty() && (text.back() == '/' || text.back() == '\\')) text.pop_back();
}

}  // namespace

std::string normalizePath(std::string text) {
  dropTrailingSeparator(text);
  std::replace(text.begin(), text.end(), '/', '\\');
  return text;
}

std::string joinPath(std::string base, std::string_view piece) {
  return joinPath(std::move(base), {piece});
}

// As if the text were normalised after each piece: all its separators are turned once, at the end.
std::string joinPath(std::string base, std::initializer_list<std::string_view> pieces) {
  if (pieces.size() == 0) return base;
  std::size_t length = base.size();
  for (const std::string_view piece : pieces) length += 1 + piece.size();
  base.reserve(length);
  for (std::string_view piece : pieces) {
    if (piece.starts_with('\\')) piece.remove_prefix(1);
    base += '\\';
    base += piece;
    dropTrailingSeparator(base);
  }
  std::replace(base.begin(), base.end(), '/', '\\');
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
