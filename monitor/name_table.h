// SPDX-License-Identifier: MIT
#ifndef L5KOV_MONITOR_NAME_TABLE_H_
#define L5KOV_MONITOR_NAME_TABLE_H_

#include <string>

// The table that maps monitor models to package names: an XML file of the host's installation.
//
//   <KovMonitorName>
//     <PackageInfo>
//       <PackageName>package</PackageName>
//       <ModelInfo><ModelName>model</ModelName></ModelInfo>   any number
//     </PackageInfo>                                          any number
//   </KovMonitorName>
namespace lumora::kov {

// The table's path below the application-data folder; UTF-8 with backslashes.
std::string nameTablePath();

// The package of `model` (exact, case-sensitive), which may be empty; "noPackage" when the file has
// no such model, is missing, unreadable or malformed. The file is read on every call, so that edits
// show while the host runs. Throws nothing.
std::string packageOfModel(const std::string& model);

}  // namespace lumora::kov

#endif  // L5KOV_MONITOR_NAME_TABLE_H_
