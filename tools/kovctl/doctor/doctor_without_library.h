// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_DOCTOR_DOCTOR_WITHOUT_LIBRARY_H_
#define L5KOV_TOOLS_KOVCTL_DOCTOR_DOCTOR_WITHOUT_LIBRARY_H_

#include <string>
#include <vector>

namespace kovctl {

/// "kovctl doctor" where the library of all commands cannot be loaded: everything that can be found
/// out without it. `reason` is what the loader said. Gives the exit code.
int doctorWithoutLibrary(const std::vector<std::string>& arguments, const std::string& reason);

/// Any other command then. Gives the exit code.
int failWithoutLibrary(const std::vector<std::string>& arguments, const std::string& reason);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_DOCTOR_DOCTOR_WITHOUT_LIBRARY_H_
