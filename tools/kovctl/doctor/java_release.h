// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_DOCTOR_JAVA_RELEASE_H_
#define L5KOV_TOOLS_KOVCTL_DOCTOR_JAVA_RELEASE_H_

#include <string>
#include <string_view>

namespace kovctl {

/// What a Java runtime says of itself in the file "release" of its folder; empty where it does not.
struct JavaRelease {
  std::string version;  ///< "17.0.21"
  std::string vendor;
  std::string machine;  ///< "x86_64"

  static JavaRelease of(const std::string& jre);
  static JavaRelease parse(std::string_view text);
};

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_DOCTOR_JAVA_RELEASE_H_
