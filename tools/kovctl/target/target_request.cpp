// SPDX-License-Identifier: MIT
#include "target/target_request.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "failure.h"
#include "record/display_functions.h"
#include "system/files.h"
#include "target/flag_values.h"
#include "target/white_point.h"

namespace kovctl {
namespace {

[[noreturn]] void refuse(const std::string& what) { throw Failure(ExitCode::kUsage, what); }

void setWhite(TargetInfo& target, const std::string& text) {
  target.white.reset();
  if (text == "off" || text == "OFF") {
    target.whiteName = "OFF";
  } else if (text.size() > 1 && (text[0] == 'K' || text[0] == 'k')) {
    const int kelvin = kelvinFlag("--white", text);
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
  if (!flags.lmax.empty()) target.lmax = numberFlag("--lmax", flags.lmax, 0.0, 100000.0);
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
  if (!flags.levels.empty()) target.levels = levelsFlag("--levels", flags.levels);
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
  if (!plannedCurve(target).curve) refuse("the target makes no curve: " + describe(target));
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

PlannedCurve plannedCurve(const TargetInfo& target) {
  constexpr double kAssumedWhite = 250.0;
  constexpr double kAssumedContrast = 1000.0;
  PlannedCurve plan;
  // A maximum of 0 stands for the panel's own, as the library has it.
  plan.isWhiteAssumed = target.lmax == 0.0;
  plan.isBlackAssumed = target.useMeasuredLmin;
  plan.white = plan.isWhiteAssumed ? std::max(kAssumedWhite, 2.0 * target.lmin) : target.lmax;
  plan.black = plan.isBlackAssumed ? plan.white / kAssumedContrast : target.lmin;
  plan.curve = TargetCurve::of(target, plan.black, plan.white);
  return plan;
}

TargetRequest readTarget(const TargetFlags& flags, TargetRequest base) {
  if (!flags.file.empty()) {
    const auto text = sys::readWhole(flags.file);
    if (!text) refuse("cannot read the target file " + flags.file);
    base = parseTargetFile(*text, flags.file, base);
  }
  apply(flags, base);
  return base;
}

TargetRequest makeTarget(const TargetFlags& flags, TargetRequest base) {
  TargetRequest request = readTarget(flags, std::move(base));
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
