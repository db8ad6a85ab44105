// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_FAILURE_H_
#define L5KOV_TOOLS_KOVCTL_FAILURE_H_

#include <stdexcept>
#include <string>
#include <vector>

#include "exit_code.h"

namespace kovctl {

/// Ends a command with one exit code and a sentence for people.
class Failure : public std::runtime_error {
 public:
  Failure(ExitCode exitCode, const std::string& sentence, std::vector<std::string> detailLines = {})
      : std::runtime_error(sentence), code(exitCode), details(std::move(detailLines)) {}

  ExitCode code;
  /// Further lines, such as the monitors that were meant.
  std::vector<std::string> details;
};

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_FAILURE_H_
