// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_MAIN_LIBRARY_H_
#define L5KOV_TOOLS_KOVCTL_MAIN_LIBRARY_H_

// The program comes in two pieces. All commands live in a library that needs libl5kov and, through
// it, the vendor's libraries; the program itself needs none of them, so that it starts, and can say
// what is missing, where they are.

/// Runs the command line; the exit code. The one name that the library exports: by its visibility,
/// on Windows by kovctl_main.def.
extern "C" int kovctlMain(int count, const char* const* arguments);

/// For the program, which looks it up.
inline constexpr const char* kMainSymbol = "kovctlMain";

#endif  // L5KOV_TOOLS_KOVCTL_MAIN_LIBRARY_H_
