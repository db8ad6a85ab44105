// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_CLI_CONTEXT_H_
#define L5KOV_TOOLS_KOVCTL_CLI_CONTEXT_H_

#include <functional>
#include <memory>
#include <string>

#include "exit_code.h"
#include "output/console.h"
#include "output/document.h"

namespace kovctl {

/// What every command gets: the global options, and where to say things.
struct Context {
  // Set by the parser.
  bool json = false;
  bool jsonLines = false;
  bool quiet = false;
  int verbosity = 0;
  bool noColor = false;

  /// What the chosen command does; set while parsing, called after it.
  std::function<ExitCode()> command;
  std::unique_ptr<Console> console;

  Console& out() { return *console; }
  /// Whether a person can be asked.
  bool isInteractive() const;
};

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_CLI_CONTEXT_H_
