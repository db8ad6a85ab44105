// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_INSTRUMENT_ICC_INSTRUMENT_H_
#define L5KOV_TOOLS_KOVCTL_INSTRUMENT_ICC_INSTRUMENT_H_

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "instrument/instrument.h"
#include "instrument/sim_functions.h"
#include "instrument/tool_process.h"

namespace kovctl {

/// The three numbers of a line that icclu answers with -v0; nothing for another line.
std::optional<std::array<double, 3>> parseIcclu(std::string_view line);

/// Measures the panel that an ICC profile describes: ArgyllCMS's icclu says what the profile makes
/// of the components, scaled from the profile's black and white to cd/m². In front of a simulated
/// monitor the components are those behind its look-up table, and its backlight dims the light, so
/// that a calibration closes its loop over physics that are not the simulator's.
class IccInstrument : public Instrument {
 public:
  IccInstrument(std::string profilePath, InstrumentOptions chosen)
      : profile(std::move(profilePath)), options(std::move(chosen)) {}
  ~IccInstrument() override;

  void open(const std::string& monitorSerial) override;
  InstrumentInfo info() const override;
  void* handle() const override { return simulated; }
  void showPatch(const Patch& patch) override;
  Reading measure() override;
  void close() override;
  bool drawsItself() const override { return true; }

 private:
  std::array<double, 3> lookUp(double r, double g, double b);
  std::array<double, 4> signal();

  std::string profile;
  InstrumentOptions options;
  std::unique_ptr<ToolProcess> icclu;
  SimFunctions functions;
  void* simulated = nullptr;
  Patch shown;
  double blackY = 0.0;
  double whiteY = 1.0;
  std::array<double, 3> whiteXyz{};
};

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_INSTRUMENT_ICC_INSTRUMENT_H_
