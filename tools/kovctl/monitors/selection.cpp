// SPDX-License-Identifier: MIT
#include "monitors/selection.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>

namespace kovctl {
namespace {

using Candidates = std::vector<Candidate>;
using Places = std::vector<std::size_t>;

std::vector<std::string> linesOf(const Candidates& monitors, const Places& chosen) {
  std::vector<std::string> lines;
  for (const std::size_t i : chosen) {
    lines.push_back(fmt::format("{}  {}", i + 1,
                                monitors[i].silence ? "does not answer" : monitors[i].name.text()));
  }
  return lines;
}

Places all(const Candidates& monitors) {
  Places result(monitors.size());
  for (std::size_t i = 0; i < result.size(); ++i) result[i] = i;
  return result;
}

std::optional<std::size_t> numberOf(std::string_view text) {
  std::size_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

// Which ones answer and are called so, wholly or at the beginning.
Places fitting(const Candidates& monitors, std::string_view wanted, bool wholly) {
  Places result;
  for (std::size_t i = 0; i < monitors.size(); ++i) {
    if (monitors[i].silence) continue;
    const std::string name = monitors[i].name.text();
    if (wholly ? name == wanted : name.rfind(wanted, 0) == 0) result.push_back(i);
  }
  return result;
}

// With the exit code of a silent one.
void refuseIfAnyIsSilent(const Candidates& monitors, const std::string& sentence) {
  const auto isSilent = [](const Candidate& one) { return one.silence.has_value(); };
  const auto silent = std::find_if(monitors.begin(), monitors.end(), isSilent);
  if (silent == monitors.end()) return;
  const auto count = std::count_if(monitors.begin(), monitors.end(), isSilent);
  throw Failure(silent->silence->code,
                fmt::format("{}: {} not answer", sentence,
                            count == 1 ? "a monitor does" : fmt::format("{} monitors do", count)),
                listed(monitors));
}

[[noreturn]] void refuseAmbiguous(const Candidates& monitors, std::string_view wanted,
                                  const Places& places) {
  throw Failure(ExitCode::kMonitor,
                fmt::format("\"{}\" is ambiguous: it fits {} monitors", wanted, places.size()),
                linesOf(monitors, places));
}

// The library and the notes of runs know monitors by their names only.
std::size_t onlyOneOfItsName(const Candidates& monitors, std::size_t place) {
  const std::string name = monitors[place].name.text();
  const Places alike = fitting(monitors, name, true);
  if (alike.size() > 1) refuseAmbiguous(monitors, name, alike);
  return place;
}

}  // namespace

std::vector<std::string> listed(const Candidates& monitors) {
  return linesOf(monitors, all(monitors));
}

std::size_t selectMonitor(const Candidates& monitors, std::string_view wanted) {
  if (monitors.empty()) throw Failure(ExitCode::kMonitor, "no monitor is attached");
  const Places same = fitting(monitors, wanted, true);
  if (!same.empty()) return onlyOneOfItsName(monitors, same.front());
  const Places alike = fitting(monitors, wanted, false);
  if (alike.size() > 1) refuseAmbiguous(monitors, wanted, alike);
  if (alike.size() == 1) {
    refuseIfAnyIsSilent(monitors,
                        fmt::format("\"{}\" may be the beginning of another name, too", wanted));
    return alike.front();
  }
  const auto number = numberOf(wanted);
  if (number && *number >= 1 && *number <= monitors.size()) {
    const Candidate& chosen = monitors[*number - 1];
    if (chosen.silence) throw *chosen.silence;
    return onlyOneOfItsName(monitors, *number - 1);
  }
  refuseIfAnyIsSilent(monitors, fmt::format("no monitor found for \"{}\"", wanted));
  throw Failure(ExitCode::kMonitor,
                fmt::format("no monitor found for \"{}\"; attached are", wanted), listed(monitors));
}

std::size_t onlyMonitor(const Candidates& monitors) {
  if (monitors.size() == 1) return selectMonitor(monitors, "1");
  refuseIfAnyIsSilent(monitors, "none was chosen with -m");
  if (monitors.empty()) throw Failure(ExitCode::kMonitor, "no monitor is attached");
  throw Failure(ExitCode::kMonitor, "several monitors are attached: choose one with -m",
                listed(monitors));
}

}  // namespace kovctl
