// SPDX-License-Identifier: MIT
#include "instrument/argyll_instrument.h"

#include "failure.h"
#include "instrument/number_text.h"

namespace kovctl {
namespace {

// Without an instrument spotread asks on for ever, or says so after twenty seconds.
constexpr double kOpeningSeconds = 30.0;
constexpr std::string_view kPrompt = "take a reading:";
constexpr std::string_view kResult = "Result is XYZ:";

bool contains(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

// Where it goes no further without a person.
bool isStuck(std::string_view text) {
  return contains(text, "Error -") || contains(text, "failed") ||
         contains(text, "needs a calibration") || contains(text, "misread");
}

}  // namespace

std::optional<Reading> parseSpotread(std::string_view text) {
  const std::size_t at = text.find(kResult);
  if (at == std::string_view::npos) return std::nullopt;
  std::string_view rest = text.substr(at + kResult.size());
  const auto numbers = takeThreeNumbers(rest);
  if (!numbers) return std::nullopt;
  return Reading{(*numbers)[1], colourOf(*numbers)};
}

void ArgyllInstrument::open(const std::string&) {
  std::vector<std::string> arguments{"spotread", "-e"};
  if (!options.argyllPort.empty()) {
    arguments.insert(arguments.end(), {"-c", options.argyllPort});
  }
  spotread = std::make_unique<ToolProcess>(std::move(arguments), options.isInterrupted);
  const std::string said = spotread->readUntil(
      [](std::string_view text) { return contains(text, kPrompt) || isStuck(text); },
      std::min(kOpeningSeconds, options.timeout), "instrument");
  if (!contains(said, kPrompt)) {
    throw Failure(ExitCode::kInstrument, "spotread finds no usable instrument: " + lastLine(said));
  }
}

InstrumentInfo ArgyllInstrument::info() const {
  return {"argyll", "ArgyllCMS spotread", std::nullopt, ""};
}

// Any character that is no line end takes a reading; the line end behind it is ignored.
Reading ArgyllInstrument::measure() {
  if (spotread == nullptr) throw Failure(ExitCode::kInstrument, "spotread is not running");
  spotread->send(" \n");
  const std::string said = spotread->readUntil(
      [](std::string_view text) {
        const std::size_t result = text.find(kResult);
        const bool complete =
            result != std::string_view::npos && text.find('\n', result) != std::string_view::npos;
        return complete || isStuck(text);
      },
      options.timeout, "reading");
  const auto reading = parseSpotread(said);
  if (!reading) throw Failure(ExitCode::kInstrument, "spotread: " + lastLine(said));
  return *reading;
}

void ArgyllInstrument::close() {
  spotread.reset();
}

}  // namespace kovctl
