// SPDX-License-Identifier: MIT
#include "instrument/sim_instrument.h"

#include "failure.h"

namespace kovctl {
namespace {

// The identifier of a colorimeter that the library knows.
constexpr std::uint32_t kDeviceId = 163;
constexpr const char* kSerial = "SIM-0001";

}  // namespace

SimInstrument::~SimInstrument() {
  SimInstrument::close();
}

void SimInstrument::open(const std::string& monitorSerial) {
  const auto found = SimFunctions::load();
  if (!found) {
    throw Failure(ExitCode::kInstrument,
                  "the measurement library of this computer is not the simulation's: choose a real "
                  "instrument with --instrument");
  }
  functions = *found;
  device = functions.open(kDeviceId, kSerial, monitorSerial.c_str());
  if (device == nullptr) {
    throw Failure(ExitCode::kInstrument, "the simulated instrument cannot be opened");
  }
}

InstrumentInfo SimInstrument::info() const {
  return {"sim", "Simulated colorimeter", kDeviceId, kSerial};
}

void SimInstrument::check(int code) const {
  if (code != 0) {
    throw Failure(ExitCode::kInstrument,
                  std::string("simulated instrument: ") + functions.errorText(code));
  }
}

void SimInstrument::showPatch(const Patch& patch) {
  check(functions.showPatch(device, patch.r, patch.g, patch.b));
}

Reading SimInstrument::measure() {
  Reading reading;
  Chromaticity& colour = reading.chromaticity.emplace();
  check(functions.measure(device, &reading.luminance, &colour.x, &colour.y));
  return reading;
}

void SimInstrument::close() {
  if (device != nullptr) functions.close(device);
  device = nullptr;
}

}  // namespace kovctl
