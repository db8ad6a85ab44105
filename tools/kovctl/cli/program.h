// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_CLI_PROGRAM_H_
#define L5KOV_TOOLS_KOVCTL_CLI_PROGRAM_H_

#include <CLI/CLI.hpp>
#include <memory>

#include "cli/context.h"
#include "failure.h"

namespace kovctl {

/// The whole command line; `context` must outlive it.
std::unique_ptr<CLI::App> makeProgram(Context& context);

/// Says why a command failed, to people and programs; the exit code.
ExitCode reportFailure(Context& context, const Failure& failure);

/// Parses, runs, reports failures; the exit code.
int runProgram(int count, const char* const* arguments);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_CLI_PROGRAM_H_
