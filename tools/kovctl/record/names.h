// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_RECORD_NAMES_H_
#define L5KOV_TOOLS_KOVCTL_RECORD_NAMES_H_

#include <array>
#include <string_view>
#include <utility>

#include "record/run_record.h"

namespace kovctl {

/// The names of an enumeration's values in files, one table for both directions.
template <class Enum>
struct Names;

template <>
struct Names<RunKind> {
  static constexpr std::array<std::pair<RunKind, std::string_view>, 2> kAll{{
      {RunKind::kCalibrate, "calibrate"},
      {RunKind::kVerify, "verify"},
  }};
};

template <>
struct Names<DisplayFunction> {
  static constexpr std::array<std::pair<DisplayFunction, std::string_view>, 7> kAll{{
      {DisplayFunction::kDicom, "DICOM"},
      {DisplayFunction::kCie, "CIE"},
      {DisplayFunction::kExp, "EXP"},
      {DisplayFunction::kLogLinear, "LOG_LINEAR"},
      {DisplayFunction::kLinear, "LINEAR"},
      {DisplayFunction::kNative, "NATIVE"},
      {DisplayFunction::kUserDefine, "USER_DEFINE"},
  }};
};

template <>
struct Names<PatchRole> {
  static constexpr std::array<std::pair<PatchRole, std::string_view>, 8> kAll{{
      {PatchRole::kWarmUp, "warm-up"},
      {PatchRole::kBlack, "black"},
      {PatchRole::kWhite, "white"},
      {PatchRole::kPrimary, "primary"},
      {PatchRole::kGray, "gray"},
      {PatchRole::kLibraryVerify, "library-verify"},
      {PatchRole::kVerify, "verify"},
      {PatchRole::kOther, "other"},
  }};
};

template <>
struct Names<MonitorState> {
  static constexpr std::array<std::pair<MonitorState, std::string_view>, 4> kAll{{
      {MonitorState::kCalibrated, "calibrated"},
      {MonitorState::kUnchanged, "unchanged"},
      {MonitorState::kRestored, "restored"},
      {MonitorState::kUnknown, "unknown"},
  }};
};

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_RECORD_NAMES_H_
