// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_OUTPUT_PROGRESS_H_
#define L5KOV_TOOLS_KOVCTL_OUTPUT_PROGRESS_H_

#include <chrono>
#include <functional>
#include <mutex>
#include <optional>
#include <string>

#include "instrument/instrument.h"
#include "output/console.h"

namespace kovctl {

/// How far a run is.
struct ProgressState {
  std::string title;           ///< "Calibrating OR-C321"
  int patch = 0;               ///< counted from 1
  std::optional<int> patches;  ///< how many there will be
  bool isEstimate = false;     ///< `patches` follows from the fraction done
  std::string color;           ///< "level 128", or components
  std::optional<double> luminance;
  double fraction = 0.0;  ///< 0 to 1
  double secondsSpent = 0.0;
};

/// "12 s", "3:05 min".
std::string durationText(double seconds);

/// One line for a terminal, never wider than `width`.
std::string progressLine(const ProgressState& state, int width);

/// Shows on standard error how far a run is: one line drawn again and again on a terminal,
/// otherwise a line for every tenth (with -v: for every patch). Also sends the events of JSON
/// lines. Any thread.
class Progress {
 public:
  using Clock = std::function<double()>;  ///< seconds

  Progress(Console& output, bool isTerminal, int terminalWidth, Clock clock);

  void begin(const std::string& title, const std::string& phase, std::optional<int> patches);
  void showPatch(const Patch& patch);
  void measured(const Reading& reading);
  void advance(double fraction);
  /// What is waited for, once per second.
  void countDown(const std::string& what, int secondsLeft);
  /// Leaves the line for other texts.
  void end();

 private:
  void draw();
  void clearLine();

  Console& console;
  const bool terminal;
  const int width;
  const Clock now;
  std::mutex mutex;
  ProgressState state;
  std::string phase;
  bool exactTotal = false;
  double start = 0.0;
  int tenthsShown = 0;
  bool onLine = false;
};

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_OUTPUT_PROGRESS_H_
