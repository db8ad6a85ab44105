// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_INSTRUMENT_INSTRUMENT_H_
#define L5KOV_TOOLS_KOVCTL_INSTRUMENT_INSTRUMENT_H_

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "record/run_record.h"

namespace kovctl {

/// A uniform colour to be shown. Components as the library asks for them, 0 to 1.
struct Patch {
  double r = 0.0;
  double g = 0.0;
  double b = 0.0;

  static Patch gray(int level) { return {level / 255.0, level / 255.0, level / 255.0}; }
  /// As an 8-bit picture carries them.
  std::array<int, 3> bytes() const;
  /// 0 to 255 when the three are equal.
  std::optional<int> level() const;
};

struct Reading {
  double luminance = 0.0;                    ///< cd/m²
  std::optional<Chromaticity> chromaticity;  ///< absent: the instrument measures no colour
};

/// Whether light may have it: both from 0 to 1, as records keep them.
bool isColour(const Chromaticity& colour);
/// The colour of tristimulus values; nothing where, as in the dark, they are no colour but noise.
std::optional<Chromaticity> colourOf(const std::array<double, 3>& xyz);

/// A measuring instrument in front of one monitor. Opened, used and closed by one thread. Every
/// operation may throw Failure(kInstrument).
class Instrument {
 public:
  virtual ~Instrument() = default;

  /// In front of the monitor with this serial number (the one that the library calls it by).
  virtual void open(const std::string& monitorSerial) = 0;
  virtual InstrumentInfo info() const = 0;
  /// What the library's calibrator takes as measuring instrument; may be null.
  virtual void* handle() const { return nullptr; }
  /// Told what is on the screen now; instruments that see for themselves need not listen.
  virtual void showPatch(const Patch& patch) = 0;
  virtual Reading measure() = 0;
  virtual void close() = 0;
  /// False: it measures the light of a real screen, so somebody must draw on one.
  virtual bool drawsItself() const = 0;
};

struct InstrumentOptions {
  std::string choice = "sim";  ///< "sim", "argyll", "icc:FILE"
  double iccWhite = 300.0;     ///< cd/m² of the profile's white
  double iccBlack = 0.3;       ///< cd/m² of the profile's black
  std::string argyllPort;      ///< number of the instrument in spotread's list; empty: its default
  double timeout = 60.0;       ///< s for one measurement of argyll or icc
  /// Asked while waiting: true ends the wait early.
  std::function<bool()> isInterrupted = [] { return false; };
};

/// @throws Failure(kUsage) for an unknown choice
std::unique_ptr<Instrument> makeInstrument(const InstrumentOptions& options);

/// Whether the vendor's measurement library in this process is the simulation's.
bool isSimulationLoaded();

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_INSTRUMENT_INSTRUMENT_H_
