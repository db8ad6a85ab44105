// SPDX-License-Identifier: MIT
#include <algorithm>
#include <string>
#include <vector>

#include "doctor/file_checks.h"
#include "system/files.h"

namespace kovctl {
namespace {

// The file and all folders above it, from `root` on.
void addWay(const std::string& root, const std::string& file, std::vector<std::string>& way) {
  std::size_t at = root.size();
  while (at != std::string::npos) {
    const std::string part = file.substr(0, at);
    if (std::find(way.begin(), way.end(), part) == way.end()) way.push_back(part);
    at = at == file.size() ? std::string::npos : std::min(file.find('/', at + 1), file.size());
  }
}

}  // namespace

// Whoever can replace one of these runs code in every host.
void checkRights(CheckList& list, const PluginLayout& layout) {
  constexpr const char* kId = "rights";
  constexpr const char* kTitle = "Rights of what is run";
  std::vector<std::string> way;
  for (const std::string& file : {layout.runtimeLibrary, layout.dataImportJar, layout.libraryJar}) {
    addWay(layout.applicationData, file, way);
  }
  std::string found;
  for (const std::string& path : way) {
    const auto writable = sys::isWritableByOthers(path);
    if (!writable) {
      list.skip(kId, kTitle, "not looked at on this system");
      return;
    }
    if (*writable) found += (found.empty() ? "" : ", ") + path;
  }
  if (found.empty()) {
    list.ok(kId, kTitle, "only their owners can write to folders, jars and the runtime library");
  } else {
    list.warn(kId, kTitle, "others than the owner can write to " + found,
              "take that right from group and others (chmod go-w): they can run code in every "
              "program that uses the plug-ins");
  }
}

}  // namespace kovctl
