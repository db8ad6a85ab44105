// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_MONITORS_JAVA_START_H_
#define L5KOV_TOOLS_KOVCTL_MONITORS_JAVA_START_H_

#include <l5kov.h>

#include <string>

#include "failure.h"

namespace kovctl {

/// Starts the Java runtime on this thread, if it does not run yet.
/// @throws Failure(kRuntime) that says where it was looked for
void startJava();

/// The exit code of a Java exception that left the library.
ExitCode exitCodeOf(const lumora::kov::java::JavaException& exception);
/// The exit code of a failed calibrator operation.
ExitCode exitCodeOf(OmError error);
const char* nameOf(OmError error);

/// What left a command or a run, with the exit code that it has.
Failure asFailure(const std::exception& reason);

/// "java.io.IOException: message", for people.
std::string textOf(const lumora::kov::java::JavaException& exception);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_MONITORS_JAVA_START_H_
