// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_RUN_STORED_TARGET_H_
#define L5KOV_TOOLS_KOVCTL_RUN_STORED_TARGET_H_

#include <l5kov.h>

#include <optional>

#include "target/target_request.h"

namespace kovctl {

/// What the look-up table was last calibrated for, as the monitor remembers it; nothing when it
/// remembers none, and for a table as it left the factory. A user-defined curve is not remembered.
std::optional<TargetRequest> storedTarget(const lumora::Monitor& monitor, int lut);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_RUN_STORED_TARGET_H_
