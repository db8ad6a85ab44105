// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_COMMANDS_COMMANDS_H_
#define L5KOV_TOOLS_KOVCTL_COMMANDS_COMMANDS_H_

#include <CLI/CLI.hpp>

#include "cli/context.h"

namespace kovctl {

// Each adds one command with its options to the program; where it is chosen, it leaves what it does
// in the context.
void addListCommand(CLI::App& program, Context& context);
void addShowCommand(CLI::App& program, Context& context);
void addCalibrateCommand(CLI::App& program, Context& context);
void addVerifyCommand(CLI::App& program, Context& context);
void addHistoryCommand(CLI::App& program, Context& context);
void addRestoreCommand(CLI::App& program, Context& context);
void addLockCommand(CLI::App& program, Context& context);
void addReportCommand(CLI::App& program, Context& context);
void addDoctorCommand(CLI::App& program, Context& context);
void addCompletionCommand(CLI::App& program, Context& context);
void addPatchWindowCommand(CLI::App& program, Context& context);

/// -m, the same everywhere.
void addMonitorOption(CLI::App& command, std::string& monitor);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_COMMANDS_COMMANDS_H_
