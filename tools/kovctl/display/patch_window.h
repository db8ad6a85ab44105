// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_DISPLAY_PATCH_WINDOW_H_
#define L5KOV_TOOLS_KOVCTL_DISPLAY_PATCH_WINDOW_H_

#include <string>

#include "exit_code.h"

namespace kovctl {

/// The process of the patch window. Reads "R G B" lines (0 to 255) from standard input and draws
/// them; writes "open" once, "shown R G B" for each, and "closed" when the user closes the window.
/// Ends with its input.
ExitCode runPatchWindow(const std::string& choice, int display);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_DISPLAY_PATCH_WINDOW_H_
