// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_DOCTOR_PROBE_H_
#define L5KOV_TOOLS_KOVCTL_DOCTOR_PROBE_H_

#include <string>

#include "cli/context.h"
#include "doctor/check.h"

namespace kovctl {

// A Java runtime that is broken ends the process that starts it. So the doctor has everything that
// needs Java looked at by a second kovctl, which prints what it finds line by line.

/// What the second kovctl does ("kovctl doctor --probe java" or "round-trip").
ExitCode runProbe(Context& context, const std::string& what);

/// Starts it, and adds what it says to the list. One that ends too early, or does not end, is a
/// failure of the check that it was at.
void checkJava(CheckList& list);
/// The same again under -Xcheck:jni, which says what the Java runtime thinks of our calls.
void checkRoundTrip(CheckList& list);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_DOCTOR_PROBE_H_
