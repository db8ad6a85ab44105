// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_KOVCTL_REPORT_EXACT_RECORD_H_
#define L5KOV_TESTS_KOVCTL_REPORT_EXACT_RECORD_H_

#include "metrics/evaluation.h"
#include "metrics/target_curve.h"
#include "metrics/verdict.h"

namespace kovctl::test {

// A verified gray scale exactly on its target, `step` levels apart.
inline RunRecord exact(int step, DisplayFunction function = DisplayFunction::kDicom) {
  RunRecord record;
  record.kind = RunKind::kVerify;
  record.target.function = function;
  record.target.lmax = 250.0;
  record.target.lmin = 0.5;
  record.target.ambient = 0.1;
  record.target.exponent = 2.2;
  record.limitsProfile = "diagnostic";
  const auto curve = wantedCurve(record.target, std::nullopt);
  for (int level = 0; level <= 255; level += step) {
    PatchResult patch;
    patch.sequence = level / step + 1;
    patch.role = PatchRole::kVerify;
    patch.r = patch.g = patch.b = level;
    patch.luminance = curve ? curve->luminance(level / 255.0) : 0.5 + level;
    record.patches.push_back(patch);
  }
  return record;
}

inline const Criterion& of(const Verdict& verdict, Quantity quantity) {
  return verdict.criteria[static_cast<std::size_t>(quantity)];
}

inline Verdict verdictOn(const RunRecord& record) { return judge(record, evaluate(record)); }

}  // namespace kovctl::test

#endif  // L5KOV_TESTS_KOVCTL_REPORT_EXACT_RECORD_H_
