// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_SYSTEM_SUBPROCESS_H_
#define L5KOV_TOOLS_KOVCTL_SYSTEM_SUBPROCESS_H_

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kovctl::sys {

/// A program that runs beside this one, talked to through its standard streams. One thread.
class Subprocess {
 public:
  struct Start {
    std::vector<std::string> arguments;  ///< the program first; looked for where the system looks
    std::vector<std::pair<std::string, std::string>> environment;  ///< on top of this program's
    /// Output as a terminal gets it, line by line, from programs that otherwise keep it back until
    /// they end.
    bool asTerminal = false;
  };
  enum class Read { kData, kTimeOut, kEnd };

  /// @throws std::runtime_error when the program cannot be started
  explicit Subprocess(const Start& start);
  Subprocess(const Subprocess&) = delete;
  Subprocess& operator=(const Subprocess&) = delete;
  /// Ends the program and what it has started, if they still run, and waits for its end.
  ~Subprocess();

  /// False when the program no longer reads.
  bool write(std::string_view text);
  void closeInput();
  /// Appends what the program has written to standard output or standard error since.
  Read read(std::string& text, std::chrono::milliseconds time);
  /// The exit status; nothing when the program still runs after the time. One that a signal ended
  /// has 128 and the signal's number.
  std::optional<int> wait(std::chrono::milliseconds time);
  void terminate();

 private:
  struct State;
  std::unique_ptr<State> state;
};

}  // namespace kovctl::sys

#endif  // L5KOV_TOOLS_KOVCTL_SYSTEM_SUBPROCESS_H_
