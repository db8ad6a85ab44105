// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_DOCTOR_FILE_CHECKS_H_
#define L5KOV_TOOLS_KOVCTL_DOCTOR_FILE_CHECKS_H_

#include "doctor/check.h"
#include "doctor/plugin_layout.h"

namespace kovctl {

// What can be found out from files alone, without Java and without libl5kov.
void checkFolders(CheckList& list, const PluginLayout& layout);
void checkRuntime(CheckList& list, const PluginLayout& layout);
void checkJars(CheckList& list, const PluginLayout& layout);
/// Who may change what every host runs.
void checkRights(CheckList& list, const PluginLayout& layout);
void checkNameTable(CheckList& list, const PluginLayout& layout);
void checkVendorLibraries(CheckList& list);
/// Where runs leave their notes and locks.
void checkStateFolder(CheckList& list);
/// Monitors that a killed run has left in another state than it found them in.
void checkModeNotes(CheckList& list);
/// What the environment tells Java.
void checkJavaOptions(CheckList& list);

/// All of them.
void checkFiles(CheckList& list, const PluginLayout& layout);

/// For the checks that need a running Java and have not been made.
void skipJavaChecks(CheckList& list, const std::string& why);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_DOCTOR_FILE_CHECKS_H_
