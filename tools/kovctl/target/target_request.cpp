// SPDX-License-Identifier: MIT
#include "target/target_request.h"

#include <fmt/format.h>

#include <cmath>

#include "failure.h"
#include "metrics/target_curve.h"
#include "system/files.h"
#include "target/flag_values.h"
#include "target/white_point.h"

namespace kovctl {
namespace {

constexpr int kMostLevels = 256;

[[noreturn]] void refuse(const std::string& what) { throw Failure(ExitCode::kUsage, what); }

void setWhite(TargetInfo& target, const std::string& text) {
  target.white.reset();
  if (text == "off" || text == "OFF") {
    target.whiteName = "OFF";
  } else if (text.size() > 1 && (text[0] == 'K' || text[0] == 'k')) {
    const int kelvin = integerFlag("--white", text.substr(1), 1000, 100000);
    target.whiteName = fmt::format("K{}", kelvin);
    target.white = whitePointOf(kelvin);
  } else {
    target.whiteName = "CUSTOM";
    target.white = chromaticityFlag("--white", text);
  }
}

void setFunction(TargetInfo& target, const std::string& text) {
  target.exponent.reset();
  if (text.rfind("gamma:", 0) == 0) {
    target.function = DisplayFunction::kExp;
    target.exponent = numberFlag("--function", text.substr(6), 0.1, 10.0);
  } else {
    target.function = functionFlag(text);
  }
}

void apply(const TargetFlags& flags, TargetRequest& request) {
  TargetInfo& target = request.target;
  if (!flags.function.empty()) setFunction(target, flags.function);
  if (!flags.lmax.empty()) target.lmax = numberFlag("--lmax", flags.lmax, 0.01, 100000.0);
  if (flags.lmin == "measured") {
    target.useMeasuredLmin = true;
    target.lmin = 0.0;
  } else if (!flags.lmin.empty()) {
    target.useMeasuredLmin = false;
    target.lmin = numberFlag("--lmin", flags.lmin, 0.0, 100000.0);
  }
  if (!flags.white.empty()) setWhite(target, flags.white);
  if (flags.ambient == "off") {
    target.ambient.reset();
  } else if (!flags.ambient.empty()) {
    target.ambient = numberFlag("--ambient", flags.ambient, 0.0, 100000.0);
  }
  if (!flags.levels.empty()) target.levels = integerFlag("--levels", flags.levels, 0, kMostLevels);
  request.useExternalSensors |= flags.externalSensors;
  request.measureBacklightResponse |= flags.backlightResponse;
}

void check(const TargetInfo& target) {
  if (target.function == DisplayFunction::kNative) return;
  if (target.function == DisplayFunction::kExp && !target.exponent) {
    refuse(
        "a gamma function needs its exponent: --function gamma:2.2, or \"ExpValue\" in the file");
  }
  if (target.function == DisplayFunction::kUserDefine && target.userCurve.empty()) {
    refuse("a user-defined function needs its \"curve\" in a target file");
  }
  // A measured black is not known yet: any that a panel may have serves to try the curve.
  constexpr double kSomeBlack = 1e-3;
  const double black = target.useMeasuredLmin ? std::min(kSomeBlack, target.lmax / 2) : target.lmin;
  if (!TargetCurve::of(target, black, target.lmax)) {
    refuse("the target makes no curve: " + describe(target));
  }
}

}  // namespace

TargetRequest defaultTarget() {
  TargetRequest request;
  request.target.lmax = 250.0;
  request.target.useMeasuredLmin = true;
  request.target.whiteName = "OFF";
  request.target.levels = 52;
  return request;
}

TargetRequest makeTarget(const TargetFlags& flags) {
  TargetRequest request = defaultTarget();
  if (!flags.file.empty()) {
    const auto text = sys::readWhole(flags.file);
    if (!text) refuse("cannot read the target file " + flags.file);
    request = parseTargetFile(*text, flags.file, request);
  }
  apply(flags, request);
  check(request.target);
  return request;
}

std::string describe(const TargetInfo& target) {
  std::string text = functionText(target);
  text += target.lmax > 0.0 ? fmt::format(", {:g} cd/m²", target.lmax) : ", measured white";
  text +=
      target.useMeasuredLmin ? ", measured black" : fmt::format(" down to {:g} cd/m²", target.lmin);
  if (target.white) {
    text += fmt::format(", white {:.4f}/{:.4f}", target.white->x, target.white->y);
    if (target.whiteName != "CUSTOM") text += " (" + target.whiteName + ")";
  } else {
    text += ", white as it is";
  }
  if (target.ambient) text += fmt::format(", ambient light {:g} cd/m²", *target.ambient);
  return text;
}

}  // namespace kovctl
