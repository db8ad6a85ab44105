// SPDX-License-Identifier: MIT
#include "instrument/tool_process.h"

#include <fmt/format.h>

#include "failure.h"

namespace kovctl {
namespace {

constexpr std::chrono::milliseconds kSlice{50};

}  // namespace

std::string lastLine(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n";
  const std::size_t last = text.find_last_not_of(kBlanks);
  if (last == std::string_view::npos) return "";
  text = text.substr(0, last + 1);
  const std::size_t start = text.find_last_of("\r\n");
  text = start == std::string_view::npos ? text : text.substr(start + 1);
  return std::string(text.substr(text.find_first_not_of(kBlanks)));
}

ToolProcess::ToolProcess(std::vector<std::string> arguments, Interrupted interrupted)
    : name(arguments.at(0)), isInterrupted(std::move(interrupted)) {
  try {
    process = std::make_unique<sys::Subprocess>(
        sys::Subprocess::Start{std::move(arguments), {{"ARGYLL_NOT_INTERACTIVE", "1"}}, true});
  } catch (const std::runtime_error& reason) {
    throw Failure(ExitCode::kInstrument, std::string("cannot start ") + reason.what(),
                  {"It is part of ArgyllCMS (Debian package argyll)."});
  }
}

void ToolProcess::fail(const std::string& what, std::string_view said) const {
  const std::string line = lastLine(said);
  throw Failure(ExitCode::kInstrument, name + " " + what + (line.empty() ? "" : ": " + line));
}

void ToolProcess::send(std::string_view text) {
  if (process->write(text)) return;
  // It may have said why.
  std::string said;
  while (process->read(said, kSlice) == sys::Subprocess::Read::kData) {
  }
  fail("has ended", said);
}

std::string ToolProcess::readUntil(const std::function<bool(std::string_view)>& isDone,
                                   double seconds, const std::string& waitingFor) {
  using Clock = std::chrono::steady_clock;
  const auto end = Clock::now() + std::chrono::duration_cast<Clock::duration>(
                                      std::chrono::duration<double>(seconds));
  std::string said;
  while (!isDone(said)) {
    if (isInterrupted()) fail("was interrupted", "");
    if (Clock::now() >= end) {
      fail(fmt::format("gave no {} within {:g} s", waitingFor, seconds), said);
    }
    if (process->read(said, kSlice) == sys::Subprocess::Read::kEnd) {
      fail("ended instead of giving its " + waitingFor, said);
    }
  }
  return said;
}

}  // namespace kovctl
