// SPDX-License-Identifier: MIT
#include "monitors/selection.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <optional>

#include "failure.h"

namespace kovctl {
namespace {

std::vector<std::string> listed(const std::vector<MonitorName>& monitors,
                                const std::vector<std::size_t>& chosen) {
  std::vector<std::string> lines;
  for (const std::size_t i : chosen)
    lines.push_back(fmt::format("{}  {}", i + 1, monitors[i].text()));
  return lines;
}

std::vector<std::size_t> all(const std::vector<MonitorName>& monitors) {
  std::vector<std::size_t> result(monitors.size());
  for (std::size_t i = 0; i < result.size(); ++i) result[i] = i;
  return result;
}

std::optional<std::size_t> numberOf(std::string_view text) {
  std::size_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

}  // namespace

std::size_t selectMonitor(const std::vector<MonitorName>& monitors, std::string_view wanted) {
  if (monitors.empty()) throw Failure(ExitCode::kMonitor, "no monitor is attached");
  std::vector<std::size_t> fitting;
  for (std::size_t i = 0; i < monitors.size(); ++i) {
    const std::string name = monitors[i].text();
    if (name == wanted) return i;
    if (name.rfind(wanted, 0) == 0) fitting.push_back(i);
  }
  if (fitting.size() == 1) return fitting.front();
  if (fitting.size() > 1) {
    throw Failure(ExitCode::kMonitor,
                  fmt::format("\"{}\" is ambiguous: it fits {} monitors", wanted, fitting.size()),
                  listed(monitors, fitting));
  }
  const auto number = numberOf(wanted);
  if (number && *number >= 1 && *number <= monitors.size()) return *number - 1;
  throw Failure(ExitCode::kMonitor,
                fmt::format("no monitor found for \"{}\"; attached are", wanted),
                listed(monitors, all(monitors)));
}

}  // namespace kovctl
