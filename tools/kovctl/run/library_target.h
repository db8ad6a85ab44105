// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_RUN_LIBRARY_TARGET_H_
#define L5KOV_TOOLS_KOVCTL_RUN_LIBRARY_TARGET_H_

#include <l5kov.h>

#include "target/target_request.h"

namespace kovctl {

/// The target under the library's keys.
pocketjson::Value libraryTarget(const TargetRequest& request);
/// The user-defined curve; Null where there is none.
pocketjson::Value libraryCurve(const TargetInfo& target);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_RUN_LIBRARY_TARGET_H_
