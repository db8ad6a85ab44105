// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_INSTRUMENT_ARGYLL_INSTRUMENT_H_
#define L5KOV_TOOLS_KOVCTL_INSTRUMENT_ARGYLL_INSTRUMENT_H_

#include <memory>
#include <optional>
#include <string_view>

#include "instrument/instrument.h"
#include "instrument/tool_process.h"

namespace kovctl {

/// What spotread prints after a reading, taken apart; nothing when there is no result in the text.
std::optional<Reading> parseSpotread(std::string_view text);

/// Any instrument that ArgyllCMS drives, through one spotread that stays open.
class ArgyllInstrument : public Instrument {
 public:
  explicit ArgyllInstrument(InstrumentOptions chosen) : options(std::move(chosen)) {}

  void open(const std::string& monitorSerial) override;
  InstrumentInfo info() const override;
  void showPatch(const Patch&) override {}
  Reading measure() override;
  void close() override;
  bool drawsItself() const override { return false; }

 private:
  InstrumentOptions options;
  std::unique_ptr<ToolProcess> spotread;
};

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_INSTRUMENT_ARGYLL_INSTRUMENT_H_
