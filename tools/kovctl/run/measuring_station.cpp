// SPDX-License-Identifier: MIT
#include "run/measuring_station.h"

#include <cmath>

#include "failure.h"
#include "run/measurements.h"
#include "system/interrupts.h"
#include "system/streams.h"

namespace kovctl {

std::unique_ptr<Instrument> chooseInstrument(const InstrumentOptions& instrumentOptions,
                                             const ScreenOptions& screenOptions) {
  auto device = makeInstrument(instrumentOptions);
  checkScreenChoice(screenOptions.choice);
  if (!device->drawsItself() && screenOptions.choice.empty()) {
    throw Failure(ExitCode::kUsage, "--instrument " + instrumentOptions.choice +
                                        " measures a real screen: --display is needed");
  }
  return device;
}

MeasuringStation::MeasuringStation(Context& context, InstrumentOptions instrumentOptions,
                                   const ScreenOptions& screenOptions,
                                   const std::string& monitorSerial) {
  instrumentOptions.isInterrupted = [this, seen = sys::interruptCount()] {
    return sys::interruptCount() > seen || (screen != nullptr && !screen->isOpen());
  };
  device = chooseInstrument(instrumentOptions, screenOptions);
  context.out().detail("opening the instrument");
  device->open(monitorSerial);
  screen = makePatchScreen(screenOptions);
  if (!device->drawsItself() && context.isInteractive()) {
    screen->show(Patch::gray(128));
    context.out().question("Put the instrument on the patch and press Enter. ");
    std::string line;
    const auto isInterrupted = [] { return sys::interruptCount() > 0; };
    sys::readLine(line, isInterrupted);
    if (isInterrupted()) throw Failure(ExitCode::kInstrument, "canceled");
  }
}

void MeasuringStation::show(const Patch& patch) {
  screen->show(patch);
  device->showPatch(patch);
}

// An instrument's library may fail in any way.
Reading MeasuringStation::measure() try {
  Reading reading = device->measure();
  if (!screen->isOpen()) throw Failure(ExitCode::kInstrument, "the patch window was closed");
  if (!std::isfinite(reading.luminance)) {
    throw Failure(ExitCode::kInstrument, "the instrument's reading is not a number");
  }
  // A colour that light cannot have is none; the luminance may be right all the same.
  if (reading.chromaticity && !isColour(*reading.chromaticity)) reading.chromaticity.reset();
  return reading;
} catch (const Failure&) {
  throw;
} catch (const std::exception& reason) {
  throw Failure(ExitCode::kInstrument, std::string("the instrument: ") + reason.what());
}

Progress makeProgress(Context& context) {
  return Progress(context.out(), sys::isTerminal(sys::Stream::kErr),
                  sys::terminalWidth(sys::Stream::kErr, 80),
                  [clock = RunClock()] { return clock.now(); });
}

}  // namespace kovctl
