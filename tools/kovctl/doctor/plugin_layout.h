// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_DOCTOR_PLUGIN_LAYOUT_H_
#define L5KOV_TOOLS_KOVCTL_DOCTOR_PLUGIN_LAYOUT_H_

#include <string>

namespace kovctl {

/// Where the maker's installation lies below the machine-wide application-data folder.
struct PluginLayout {
  std::string applicationData;
  std::string plugins;
  std::string jre;
  std::string runtimeLibrary;
  std::string dataImportJar;
  std::string libraryJar;
  std::string nameTable;

  static PluginLayout find();
};

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_DOCTOR_PLUGIN_LAYOUT_H_
