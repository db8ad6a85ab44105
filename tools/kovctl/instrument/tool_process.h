// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_INSTRUMENT_TOOL_PROCESS_H_
#define L5KOV_TOOLS_KOVCTL_INSTRUMENT_TOOL_PROCESS_H_

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "system/subprocess.h"

namespace kovctl {

/// A measuring program that lives as long as the instrument and is never waited for without end.
/// Failures are Failure(kInstrument) with what the program said last.
class ToolProcess {
 public:
  /// Asked while waiting; true ends the wait early.
  using Interrupted = std::function<bool()>;

  ToolProcess(std::vector<std::string> arguments, Interrupted interrupted);

  void send(std::string_view text);
  /// Waits until the program's text since the last call satisfies `isDone` and returns it.
  std::string readUntil(const std::function<bool(std::string_view)>& isDone, double seconds,
                        const std::string& waitingFor);

 private:
  [[noreturn]] void fail(const std::string& what, std::string_view said) const;

  std::string name;
  Interrupted isInterrupted;
  std::unique_ptr<sys::Subprocess> process;
};

/// The last line with anything in it, without blanks around it.
std::string lastLine(std::string_view text);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_INSTRUMENT_TOOL_PROCESS_H_
