// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_TARGET_TARGET_REQUEST_H_
#define L5KOV_TOOLS_KOVCTL_TARGET_TARGET_REQUEST_H_

#include <optional>
#include <string>
#include <string_view>

#include "metrics/target_curve.h"
#include "record/run_record.h"

namespace kovctl {

/// What a calibration is asked for: the target, and how it is to be measured.
struct TargetRequest {
  TargetInfo target;
  bool useExternalSensors = false;
  bool measureBacklightResponse = false;
};

/// What the command line says about the target; empty texts say nothing.
struct TargetFlags {
  std::string file;      ///< a target file, under whatever else is said
  std::string function;  ///< dicom, cie, gamma:2.2, loglinear, linear, native, user
  std::string lmax;      ///< cd/m²
  std::string lmin;      ///< cd/m² or "measured"
  std::string white;     ///< K6500, x,y or off
  std::string ambient;   ///< cd/m² or "off"
  std::string levels;    ///< a count, 0: the library's choice
  bool externalSensors = false;
  bool backlightResponse = false;
};

/// DICOM, 250 cd/m², the panel's own black and white, 52 levels.
TargetRequest defaultTarget();

/// The target file's text: a JSON object with the library's own keys, and beside them "curve" (an
/// array of numbers) and "ambientLight" (cd/m²). Members that are missing keep what `base` has.
/// @throws Failure(kUsage) for anything else, unknown members included
TargetRequest parseTargetFile(std::string_view text, const std::string& name, TargetRequest base);

/// What flags and file say, over what they leave open, whether or not that makes a curve.
/// @throws Failure(kUsage) for flags and files that make no sense
TargetRequest readTarget(const TargetFlags& flags, TargetRequest base);

/// The same, for a target with a curve.
/// @throws Failure(kUsage) for flags and files that make no sense, and for a target without a curve
TargetRequest makeTarget(const TargetFlags& flags, TargetRequest base = defaultTarget());

/// A target's curve before anything was measured. Where the target leaves black or white to the
/// panel, any that a panel may have serves to show the curve.
struct PlannedCurve {
  std::optional<TargetCurve> curve;  ///< absent: there is none
  double black = 0.0;                ///< cd/m²
  double white = 0.0;                ///< cd/m²
  bool isBlackAssumed = false;
  bool isWhiteAssumed = false;
};
PlannedCurve plannedCurve(const TargetInfo& target);

/// "DICOM, 250 cd/m², measured black, white as it is, ambient light 0.1 cd/m²".
std::string describe(const TargetInfo& target);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_TARGET_TARGET_REQUEST_H_
