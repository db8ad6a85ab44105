// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_SYSTEM_WINDOWS_MISSING_IMPORT_H_
#define L5KOV_TOOLS_KOVCTL_SYSTEM_WINDOWS_MISSING_IMPORT_H_

#include <string>

namespace kovctl::sys {

/// Windows says that a library cannot be loaded, and not which of those that it needs is missing.
/// This is the first that cannot be found, `library` itself included; empty when there is none.
std::string missingImport(const std::string& library);

}  // namespace kovctl::sys

#endif  // L5KOV_TOOLS_KOVCTL_SYSTEM_WINDOWS_MISSING_IMPORT_H_
