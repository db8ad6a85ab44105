// SPDX-License-Identifier: MIT
#include "display/window_process.h"

#include <fmt/format.h>

#include <thread>

#include "failure.h"
#include "instrument/tool_process.h"
#include "system/files.h"

namespace kovctl {
namespace {

constexpr std::chrono::seconds kLongest{15};
constexpr std::chrono::milliseconds kSlice{50};

}  // namespace

WindowProcess::WindowProcess(const ScreenOptions& chosen)
    : options(chosen),
      process({{sys::executable(), "patch-window", chosen.choice, std::to_string(chosen.display)},
               {},
               false}) {
  await("open");
  wasOpen = true;
}

void WindowProcess::fail() {
  if (said.find("closed\n") != std::string::npos) {
    throw Failure(ExitCode::kInstrument, "the patch window was closed");
  }
  const std::string reason = lastLine(said);
  if (!wasOpen) {
    throw Failure(ExitCode::kInstrument, reason.empty() ? "the patch window did not open" : reason);
  }
  throw Failure(ExitCode::kInstrument,
                "the patch window is gone" + (reason.empty() ? "" : ": " + reason));
}

void WindowProcess::await(const std::string& wanted) {
  const auto end = std::chrono::steady_clock::now() + kLongest;
  while (said.find(wanted + "\n") == std::string::npos) {
    if (ended || std::chrono::steady_clock::now() >= end) fail();
    ended = process.read(said, kSlice) == sys::Subprocess::Read::kEnd;
  }
  said.clear();
}

void WindowProcess::show(const Patch& patch) {
  if (!isOpen()) fail();
  const auto [r, g, b] = patch.bytes();
  const std::string color = fmt::format("{} {} {}", r, g, b);
  if (!process.write(color + "\n")) fail();
  await("shown " + color);
  std::this_thread::sleep_for(std::chrono::duration<double>(options.settleSeconds));
}

bool WindowProcess::isOpen() {
  while (!ended) {
    const auto read = process.read(said, std::chrono::milliseconds(0));
    if (read == sys::Subprocess::Read::kTimeOut) break;
    ended = read == sys::Subprocess::Read::kEnd;
  }
  return !ended && said.find("closed\n") == std::string::npos;
}

}  // namespace kovctl
