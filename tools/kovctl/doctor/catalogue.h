// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_DOCTOR_CATALOGUE_H_
#define L5KOV_TOOLS_KOVCTL_DOCTOR_CATALOGUE_H_

#include <span>

namespace kovctl {

/// A member of a Java class that the library binds when it starts.
struct CatalogueRow {
  const char* className;  ///< "java/util/ArrayList"
  const char* name;
  const char* signature;
  bool isStatic;
};

/// All members that the library looks up. It says nothing of one that it does not find until
/// somebody calls it, so that the doctor asks for each. The library's own table is not to be seen
/// from here; a test holds the two together.
std::span<const CatalogueRow> catalogue();

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_DOCTOR_CATALOGUE_H_
