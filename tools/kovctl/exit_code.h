// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_EXIT_CODE_H_
#define L5KOV_TOOLS_KOVCTL_EXIT_CODE_H_

namespace kovctl {

/// What scripts rely on; listed for people in docs/kovctl.1.
enum class ExitCode : int {
  kOk = 0,
  kJava = 1,           ///< the maker's Java library failed; as with 6, a run tells what it has left
  kUsage = 2,          ///< wrong arguments, a file that cannot be read, an impossible target
  kMonitor = 3,        ///< no such monitor, or more than one
  kOutsideLimits = 4,  ///< done, but the verdict is not a pass
  kRuntime = 5,        ///< plug-in folder, Java runtime or vendor libraries
  kCommunication = 6,  ///< data did not reach the monitor, or another run is at work on it
  kInstrument = 7,     ///< the instrument or the patch window failed
  kOutput = 8,         ///< a result could not be written
  kCanceled = 130,     ///< canceled, and the monitor is as it was
  kRestoreFailed = 131,  ///< canceled or only measured, and the monitor could not be put back
};

/// For JSON: "monitor", "instrument", …
const char* nameOf(ExitCode code);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_EXIT_CODE_H_
