// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_CLI_COMPLETION_H_
#define L5KOV_TOOLS_KOVCTL_CLI_COMPLETION_H_

#include <CLI/CLI.hpp>
#include <string>

namespace kovctl {

/// A completion script for bash, zsh or fish, made from the program's own commands and options, so
/// that it cannot lag behind them.
std::string completionScript(CLI::App& program, const std::string& shell);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_CLI_COMPLETION_H_
