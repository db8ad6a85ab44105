// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_VERSION_H_
#define L5KOV_TOOLS_KOVCTL_VERSION_H_

namespace kovctl {

/// Of the library and of this program: they are built and released together.
extern const char* const kVersion;

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_VERSION_H_
