// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_WINDOWS_HANDLE_KEEPER_H_
#define L5KOV_TESTS_WINDOWS_HANDLE_KEEPER_H_

#include <string>

// A host's plug-in: a DLL whose static objects are destroyed while the process ends, when no other
// thread runs any more.

/// Asks for the monitors and keeps the first one's handle in a static object of the DLL. The DLL
/// writes a line into the log file when that object has been destroyed.
__declspec(dllexport) void keepHandle(const std::string& logFile);

/// Appends a line with the system's calls alone: also while the process ends.
__declspec(dllexport) void appendLine(const std::string& logFile, const std::string& line);

/// From the moment on when ExitProcess has ended every other thread.
__declspec(dllexport) bool othersAreGone();

#endif  // L5KOV_TESTS_WINDOWS_HANDLE_KEEPER_H_
