// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_CLI_PROGRAM_H_
#define L5KOV_TOOLS_KOVCTL_CLI_PROGRAM_H_

#include <CLI/CLI.hpp>
#include <memory>

#include "cli/context.h"

namespace kovctl {

/// The whole command line; `context` must outlive it.
std::unique_ptr<CLI::App> makeProgram(Context& context);

/// Parses, runs, reports failures; the exit code.
int runProgram(int count, const char* const* arguments);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_CLI_PROGRAM_H_
