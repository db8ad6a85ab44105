// SPDX-License-Identifier: MIT
#include "doctor/plugin_layout.h"

#include "system/files.h"

namespace kovctl {

PluginLayout PluginLayout::find() {
  PluginLayout layout;
  layout.applicationData = sys::commonApplicationData();
  const std::string product = layout.applicationData + "/ORVA/Lumora5";
  layout.plugins = product + "/plugins";
  layout.jre = layout.plugins + "/com.orva.lumora.jre/jre";
  layout.runtimeLibrary = sys::runtimeLibraryIn(layout.jre);
  layout.dataImportJar = layout.plugins + "/com.orva.lumora.dataImport/external/dataImport.jar";
  layout.libraryJar =
      layout.plugins + "/com.orva.lumora.common.monitorcom.kov/external/KOVLibrary.jar";
  layout.nameTable = product + "/Data/Profile/KovMonitorName.xml";
  return layout;
}

}  // namespace kovctl
