// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_DOCTOR_PROBE_LINES_H_
#define L5KOV_TOOLS_KOVCTL_DOCTOR_PROBE_LINES_H_

#include <string>
#include <string_view>
#include <vector>

#include "doctor/check.h"

namespace kovctl {

// The lines that the two kovctls talk in. Whatever else is printed, the Java runtime's own words
// for instance, is kept apart.
void printProbeBegin(const std::string& id, const std::string& title);
void printProbeResult(const Check& check);

struct ProbeOutput {
  std::vector<Check> checks;
  /// The check that was begun and has no result.
  std::string openId;
  std::string openTitle;
  std::vector<std::string> otherLines;
};

ProbeOutput parseProbe(std::string_view text);

/// What -Xcheck:jni has to complain of.
std::vector<std::string> jniComplaints(const std::vector<std::string>& lines);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_DOCTOR_PROBE_LINES_H_
