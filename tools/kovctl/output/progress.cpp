// SPDX-License-Identifier: MIT
#include "output/progress.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "output/plain_text.h"
#include "output/table.h"

namespace kovctl {
namespace {

constexpr int kBarColumns = 20;
constexpr int kFewestBarColumns = 5;

std::string bar(double fraction, int columns) {
  const int full = std::clamp(static_cast<int>(std::floor(fraction * columns)), 0, columns);
  return "[" + std::string(static_cast<std::size_t>(full), '#') +
         std::string(static_cast<std::size_t>(columns - full), '.') + "]";
}

std::string counter(const ProgressState& state) {
  if (!state.patches) return fmt::format("patch {}", state.patch);
  return fmt::format("patch {} of {}{}", state.patch, state.isEstimate ? "~" : "", *state.patches);
}

std::string remaining(const ProgressState& state) {
  if (state.fraction < 0.02 || state.fraction >= 1.0) return "";
  return "ETA " + durationText(state.secondsSpent * (1.0 - state.fraction) / state.fraction);
}

std::string colorText(const Patch& patch) {
  const auto level = patch.level();
  if (level) return fmt::format("level {:>3}", *level);
  const auto [r, g, b] = patch.bytes();
  return fmt::format("{}/{}/{}", r, g, b);
}

void cutTo(std::string& text, int width) {
  std::size_t end = text.size();
  while (displayWidth(std::string_view(text).substr(0, end)) > static_cast<std::size_t>(width)) {
    --end;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) --end;
  }
  text.resize(end);
}

}  // namespace

std::string durationText(double seconds) {
  const long whole = std::lround(seconds);
  if (whole < 60) return fmt::format("{} s", whole);
  return fmt::format("{}:{:02} min", whole / 60, whole % 60);
}

std::string progressLine(const ProgressState& state, int width) {
  std::string facts = counter(state);
  if (!state.color.empty()) facts += "  " + state.color;
  if (state.luminance) facts += fmt::format("  {:.4g} cd/m²", *state.luminance);
  const std::string share = fmt::format("{:3.0f} %", state.fraction * 100.0);
  const std::string eta = remaining(state);
  std::string line = state.title + "  " + bar(state.fraction, kBarColumns) + " " + share + "  " +
                     facts + (eta.empty() ? "" : "  " + eta);
  if (displayWidth(line) > static_cast<std::size_t>(width)) {
    line = bar(state.fraction, kFewestBarColumns) + " " + share + "  " + facts +
           (eta.empty() ? "" : "  " + eta);
  }
  cutTo(line, width);
  return line;
}

Progress::Progress(Console& output, bool isTerminal, int terminalWidth, Clock clock)
    : console(output), terminal(isTerminal), width(terminalWidth), now(std::move(clock)) {}

void Progress::begin(const std::string& title, const std::string& name,
                     std::optional<int> patches) {
  const std::lock_guard lock(mutex);
  clearLine();
  state = ProgressState{};
  // As it will be shown, so that its width is known.
  state.title = plainLine(title);
  state.patches = patches;
  phase = name;
  exactTotal = patches.has_value();
  start = now();
  tenthsShown = 0;
  console.event({{"event", "begin"}, {"phase", phase}, {"title", title}});
  if (!terminal) console.note(title);
}

void Progress::showPatch(const Patch& patch) {
  const std::lock_guard lock(mutex);
  ++state.patch;
  // The one before it belongs to another level.
  state.luminance.reset();
  state.color = colorText(patch);
  draw();
}

void Progress::measured(const Reading& reading) {
  const std::lock_guard lock(mutex);
  state.luminance = reading.luminance;
  Json event{{"event", "patch"}, {"phase", phase}, {"patch", state.patch}};
  if (state.patches) event["patches"] = *state.patches;
  event["color"] = state.color;
  event["luminance"] = reading.luminance;
  console.event(event);
  if (!terminal)
    console.detail("  " + counter(state) + "  " + state.color +
                   fmt::format("  {:.4g} cd/m²", reading.luminance));
  draw();
}

void Progress::advance(double fraction) {
  const std::lock_guard lock(mutex);
  state.fraction = std::clamp(fraction, 0.0, 1.0);
  state.secondsSpent = now() - start;
  // The library tells no number of patches, but what share of them is done.
  if (!exactTotal && state.fraction > 0.05 && state.patch > 0) {
    state.patches =
        std::max(state.patch, static_cast<int>(std::lround(state.patch / state.fraction)));
    state.isEstimate = state.fraction < 1.0;
  }
  console.event({{"event", "progress"}, {"phase", phase}, {"fraction", state.fraction}});
  const int tenths = static_cast<int>(std::floor(state.fraction * 10.0 + 1e-9));
  if (!terminal && tenths > tenthsShown) {
    const std::string eta = remaining(state);
    console.note(
        fmt::format("  {} %  {}{}", tenths * 10, counter(state), eta.empty() ? "" : "  " + eta));
    tenthsShown = tenths;
  }
  draw();
}

void Progress::countDown(const std::string& what, int secondsLeft) {
  const std::lock_guard lock(mutex);
  console.event({{"event", "wait"}, {"text", what}, {"secondsLeft", secondsLeft}});
  const std::string line = fmt::format("{}: {} s", what, secondsLeft);
  if (!terminal) {
    console.note(line);
  } else if (!console.chosen().quiet) {
    console.lineInPlace(line);
    onLine = true;
  }
}

void Progress::end() {
  const std::lock_guard lock(mutex);
  clearLine();
}

void Progress::draw() {
  if (!terminal || console.chosen().quiet) return;
  // The last column stays free: some terminals break the line there.
  console.lineInPlace(progressLine(state, width - 1));
  onLine = true;
}

void Progress::clearLine() {
  if (onLine) console.lineInPlace("");
  onLine = false;
}

}  // namespace kovctl
