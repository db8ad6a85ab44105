// SPDX-License-Identifier: MIT
#include "metrics/verdict.h"

#include <fmt/format.h>

#include <cmath>

namespace kovctl {
namespace {

std::optional<double> magnitude(const std::optional<double>& value) {
  return value ? std::optional<double>(std::abs(*value)) : std::nullopt;
}

std::optional<double> valueOf(Quantity quantity, const Evaluation& e) {
  switch (quantity) {
    case Quantity::kContrastResponse:
      return e.deciding ? e.deciding->largestDeviation : std::nullopt;
    case Quantity::kLuminanceRatio:
      return e.luminanceRatio;
    case Quantity::kAmbientRatio:
      return e.ambientRatio;
    case Quantity::kMaximumLuminance:
      return e.lmax;
    case Quantity::kWhiteLevel:
      return magnitude(e.lmaxDeviation);
    case Quantity::kBlackLevel:
      return magnitude(e.lminDeviation);
    case Quantity::kWhitePoint:
      return e.whiteDistance;
    case Quantity::kGrayTracking:
      return e.largestGrayDistance;
  }
  return std::nullopt;
}

// What the target leaves to the panel cannot be missed.
bool targetAsksFor(Quantity quantity, const TargetInfo& target) {
  switch (quantity) {
    case Quantity::kWhiteLevel:
      return target.lmax > 0.0;
    case Quantity::kBlackLevel:
      return target.lmin > 0.0 && !target.useMeasuredLmin;
    case Quantity::kWhitePoint:
      return target.white.has_value();
    default:
      return true;
  }
}

std::string whyAbsent(Quantity quantity, const RunRecord& record, const Evaluation& evaluation) {
  const bool asked = targetAsksFor(quantity, record.target);
  switch (quantity) {
    case Quantity::kContrastResponse:
      if (record.target.function == DisplayFunction::kNative)
        return "the native function has no target curve";
      if (record.target.function == DisplayFunction::kUserDefine && record.target.userCurve.empty())
        return "the user-defined curve is not known";
      return "the 18 deciding levels were not all measured";
    case Quantity::kAmbientRatio:
      if (!record.target.ambient) return "the ambient light is not known";
      if (!(*record.target.ambient > 0.0)) return "the ambient light is given as 0";
      return evaluation.lmin ? "the measured black is not above 0" : "the black was not measured";
    case Quantity::kWhiteLevel:
      return asked ? "the white was not measured" : "the target has no maximum luminance";
    case Quantity::kBlackLevel:
      return asked ? "the black was not measured" : "the target has no minimum luminance";
    case Quantity::kWhitePoint:
      return asked ? "the white's colour was not measured" : "the target has no white point";
    case Quantity::kGrayTracking:
      return "the grays' colours were not measured";
    case Quantity::kLuminanceRatio:
      if (evaluation.lmin && evaluation.lmax) return "the measured black is not above 0";
      break;
    case Quantity::kMaximumLuminance:
      break;
  }
  return "black and white were not both measured";
}

const Limit* limitOn(Quantity quantity, const LimitsProfile* profile) {
  if (profile)
    for (const Limit& limit : profile->limits)
      if (limit.quantity == quantity) return &limit;
  return nullptr;
}

// The limits on contrast response are about the grayscale standard display function.
bool limitCounts(Quantity quantity, const RunRecord& record) {
  return quantity != Quantity::kContrastResponse ||
         record.target.function == DisplayFunction::kDicom;
}

// What decides is measured coarsely on purpose: between levels that are close to each other, the
// meter's own error is a large part of the difference.
std::string finerLevels(const Evaluation& evaluation) {
  if (!evaluation.informing || !evaluation.informing->largestDeviation) return {};
  return fmt::format("{} levels decide; over {} levels {:.2f} %, for information", kDecidingPoints,
                     evaluation.informing->steps.size() + 1,
                     *evaluation.informing->largestDeviation * 100.0);
}

Criterion judgeOne(Quantity quantity, const RunRecord& record, const Evaluation& evaluation,
                   const LimitsProfile* profile) {
  Criterion criterion;
  criterion.quantity = quantity;
  criterion.value = valueOf(quantity, evaluation);
  if (!criterion.value) criterion.note = whyAbsent(quantity, record, evaluation);
  const Limit* limit = limitOn(quantity, profile);
  if (!limit) {
    if (criterion.value && profile) criterion.note = "this profile has no limit on it";
    return criterion;
  }
  if (!limitCounts(quantity, record)) {
    if (criterion.value) criterion.note = "the limit is for the DICOM function only";
    return criterion;
  }
  criterion.limit = *limit;
  if (!criterion.value) return criterion;
  const bool within = limit->bound == Bound::kAtMost ? *criterion.value <= limit->value
                                                     : *criterion.value >= limit->value;
  criterion.outcome = within ? Outcome::kPass : Outcome::kFail;
  if (quantity == Quantity::kContrastResponse) criterion.note = finerLevels(evaluation);
  if (limit->isOwn) criterion.note = "kovctl's own tolerance, of no standard";
  return criterion;
}

// What the profile limits and this run could not tell.
std::string missingValues(const RunRecord& record, const Verdict& verdict) {
  std::string text;
  for (const Criterion& criterion : verdict.criteria) {
    if (!criterion.limit || criterion.value) continue;
    if (!targetAsksFor(criterion.quantity, record.target)) continue;
    text += fmt::format("{}{} ({})", text.empty() ? " Not judged: " : ", ",
                        nameOf(criterion.quantity), criterion.note);
  }
  return text.empty() ? text : text + ".";
}

void conclude(const RunRecord& record, const Evaluation& evaluation, Verdict& verdict) {
  int passed = 0;
  int failed = 0;
  for (const Criterion& criterion : verdict.criteria) {
    passed += criterion.outcome == Outcome::kPass;
    failed += criterion.outcome == Outcome::kFail;
  }
  const Criterion& contrast = verdict.criteria.front();
  const std::string addition =
      evaluation.isLibrarysOwn
          ? " Measured by the library's own verification; there was no independent check."
          : "";
  if (record.result.canceled) {
    verdict.reason = "The run was canceled; nothing is judged.";
  } else if (record.result.error) {
    verdict.reason = "The run failed; nothing is judged.";
  } else if (!verdict.profile) {
    verdict.reason = record.limitsProfile.empty()
                         ? "No limits were chosen; nothing is judged."
                         : "The limits profile is not known here; nothing is judged.";
  } else if (failed > 0) {
    verdict.outcome = Outcome::kFail;
    verdict.reason = fmt::format("{} of {} limits not met.", failed, passed + failed) + addition;
  } else if (!contrast.limit) {
    // Kept: whatever else is within its limits, a gray scale that nobody has judged may be
    // anything.
    verdict.reason = "The gray scale is not judged: " + contrast.note + ".";
  } else if (!contrast.value) {
    verdict.reason = "Too little was measured to judge.";
  } else {
    verdict.outcome = Outcome::kPass;
    verdict.reason = (passed == 1 ? "The one limit that applies is met."
                                  : fmt::format("All {} limits that apply are met.", passed)) +
                     missingValues(record, verdict) + addition;
  }
}

}  // namespace

Verdict judge(const RunRecord& record, const Evaluation& evaluation) {
  Verdict verdict;
  verdict.profile = findLimits(record.limitsProfile);
  for (int i = 0; i < kQuantities; ++i)
    verdict.criteria.push_back(
        judgeOne(static_cast<Quantity>(i), record, evaluation, verdict.profile));
  conclude(record, evaluation, verdict);
  return verdict;
}

std::string_view nameOf(Quantity quantity) {
  switch (quantity) {
    case Quantity::kContrastResponse:
      return "Contrast response, largest deviation";
    case Quantity::kLuminanceRatio:
      return "Luminance ratio";
    case Quantity::kAmbientRatio:
      return "Ambient ratio";
    case Quantity::kMaximumLuminance:
      return "Maximum luminance";
    case Quantity::kWhiteLevel:
      return "Maximum luminance, deviation from target";
    case Quantity::kBlackLevel:
      return "Minimum luminance, deviation from target";
    case Quantity::kWhitePoint:
      return "White point, Δu′v′ from target";
    case Quantity::kGrayTracking:
      return "Gray tracking, largest Δu′v′";
  }
  return "";
}

std::string formatValue(Quantity quantity, double value) {
  switch (quantity) {
    case Quantity::kContrastResponse:
    case Quantity::kWhiteLevel:
    case Quantity::kBlackLevel:
      return fmt::format("{:.2f} %", value * 100.0);
    case Quantity::kLuminanceRatio:
      return fmt::format("{:.1f}", value);
    case Quantity::kAmbientRatio:
      return fmt::format("{:.2f}", value);
    case Quantity::kMaximumLuminance:
      return fmt::format("{:.2f} cd/m²", value);
    case Quantity::kWhitePoint:
    case Quantity::kGrayTracking:
      return fmt::format("{:.4f}", value);
  }
  return fmt::format("{}", value);
}

std::string formatLimit(const Limit& limit) {
  const std::string_view sign = limit.bound == Bound::kAtMost ? "≤" : "≥";
  switch (limit.quantity) {
    case Quantity::kContrastResponse:
    case Quantity::kWhiteLevel:
    case Quantity::kBlackLevel:
      return fmt::format("{} {:.3g} %", sign, limit.value * 100.0);
    case Quantity::kMaximumLuminance:
      return fmt::format("{} {:.4g} cd/m²", sign, limit.value);
    case Quantity::kLuminanceRatio:
    case Quantity::kAmbientRatio:
    case Quantity::kWhitePoint:
    case Quantity::kGrayTracking:
      break;
  }
  return fmt::format("{} {:.3g}", sign, limit.value);
}

}  // namespace kovctl
