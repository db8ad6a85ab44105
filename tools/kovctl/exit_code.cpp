// SPDX-License-Identifier: MIT
#include "exit_code.h"

namespace kovctl {

const char* nameOf(ExitCode code) {
  switch (code) {
    case ExitCode::kOk:
      return "ok";
    case ExitCode::kJava:
      return "java";
    case ExitCode::kUsage:
      return "usage";
    case ExitCode::kMonitor:
      return "monitor";
    case ExitCode::kOutsideLimits:
      return "outside-limits";
    case ExitCode::kRuntime:
      return "runtime";
    case ExitCode::kCommunication:
      return "communication";
    case ExitCode::kInstrument:
      return "instrument";
    case ExitCode::kOutput:
      return "output";
    case ExitCode::kCanceled:
      return "canceled";
    case ExitCode::kRestoreFailed:
      return "restore-failed";
  }
  return "unknown";
}

}  // namespace kovctl
