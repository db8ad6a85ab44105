// SPDX-License-Identifier: MIT
#include "instrument/icc_instrument.h"

#include <fmt/format.h>

#include "failure.h"
#include "instrument/number_text.h"

namespace kovctl {
namespace {

constexpr std::uint32_t kUnknownDevice = 0;

}  // namespace

std::optional<std::array<double, 3>> parseIcclu(std::string_view line) {
  const auto result = takeThreeNumbers(line);
  if (!result || line.find_first_not_of(kBlanks) != std::string_view::npos) return std::nullopt;
  return result;
}

IccInstrument::~IccInstrument() {
  IccInstrument::close();
}

void IccInstrument::open(const std::string& monitorSerial) {
  icclu = std::make_unique<ToolProcess>(
      std::vector<std::string>{"icclu", "-v0", "-ff", "-ia", "-px", profile},
      options.isInterrupted);
  try {
    blackY = lookUp(0.0, 0.0, 0.0)[1];
    whiteXyz = lookUp(1.0, 1.0, 1.0);
  } catch (const Failure& failure) {
    throw Failure(failure.code, profile + " as an ICC profile: " + failure.what(), failure.details);
  }
  whiteY = whiteXyz[1];
  if (!(whiteY > blackY)) {
    throw Failure(ExitCode::kInstrument, profile + ": the profile's white is not above its black");
  }
  if (const auto found = SimFunctions::load(); found && found->signal != nullptr) {
    functions = *found;
    simulated = functions.open(kUnknownDevice, "", monitorSerial.c_str());
  }
}

InstrumentInfo IccInstrument::info() const {
  return {"icc", "ICC profile " + profile, std::nullopt, ""};
}

std::array<double, 3> IccInstrument::lookUp(double r, double g, double b) {
  if (icclu == nullptr) throw Failure(ExitCode::kInstrument, "icclu is not running");
  icclu->send(fmt::format("{:.9f} {:.9f} {:.9f}\n", r, g, b));
  const std::string said = icclu->readUntil(
      [](std::string_view text) { return text.find('\n') != std::string_view::npos; },
      options.timeout, "answer");
  const auto xyz = parseIcclu(said);
  if (!xyz) throw Failure(ExitCode::kInstrument, "icclu: " + lastLine(said));
  return *xyz;
}

void IccInstrument::showPatch(const Patch& patch) {
  shown = patch;
  if (simulated == nullptr) return;
  const int code = functions.showPatch(simulated, patch.r, patch.g, patch.b);
  if (code != 0) throw Failure(ExitCode::kInstrument, functions.errorText(code));
}

// What drives the panel: three components and the backlight.
std::array<double, 4> IccInstrument::signal() {
  if (simulated == nullptr) return {shown.r, shown.g, shown.b, 1.0};
  std::array<double, 4> now{};
  const int code = functions.signal(simulated, now.data());
  if (code != 0) throw Failure(ExitCode::kInstrument, functions.errorText(code));
  return now;
}

// The light that no profile of a matrix has, the panel's black, is added as light of the white's
// colour, so that black has a colour at all.
Reading IccInstrument::measure() {
  const auto [r, g, b, backlight] = signal();
  const std::array<double, 3> xyz = lookUp(r, g, b);
  const double scale = (options.iccWhite - options.iccBlack) / (whiteY - blackY);
  std::array<double, 3> light{};
  for (std::size_t i = 0; i < light.size(); ++i) {
    const double black = blackY * whiteXyz[i] / whiteY;
    const double leaking = options.iccBlack * whiteXyz[i] / whiteY;
    light[i] = backlight * (leaking + scale * (xyz[i] - black));
  }
  return {light[1], colourOf(light)};
}

void IccInstrument::close() {
  if (simulated != nullptr) functions.close(simulated);
  simulated = nullptr;
  icclu.reset();
}

}  // namespace kovctl
