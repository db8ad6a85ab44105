// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_INSTRUMENT_SIM_INSTRUMENT_H_
#define L5KOV_TOOLS_KOVCTL_INSTRUMENT_SIM_INSTRUMENT_H_

#include "instrument/instrument.h"
#include "instrument/sim_functions.h"

namespace kovctl {

/// The simulation's instrument in front of one of its panels.
class SimInstrument : public Instrument {
 public:
  SimInstrument() = default;
  ~SimInstrument() override;

  void open(const std::string& monitorSerial) override;
  InstrumentInfo info() const override;
  void* handle() const override { return device; }
  void showPatch(const Patch& patch) override;
  Reading measure() override;
  void close() override;
  bool drawsItself() const override { return true; }

 private:
  void check(int code) const;

  SimFunctions functions;
  void* device = nullptr;
};

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_INSTRUMENT_SIM_INSTRUMENT_H_
