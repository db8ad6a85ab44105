// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_METRICS_VERDICT_H_
#define L5KOV_TOOLS_KOVCTL_METRICS_VERDICT_H_

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "metrics/evaluation.h"
#include "metrics/limits.h"
#include "record/run_record.h"

namespace kovctl {

enum class Outcome { kPass, kFail, kNotApplicable };

struct Criterion {
  Quantity quantity = Quantity::kContrastResponse;
  std::optional<double> value;  ///< absent: not measured
  std::optional<Limit> limit;   ///< absent: the profile has none
  Outcome outcome = Outcome::kNotApplicable;
  std::string note;  ///< why it is not applicable; empty otherwise
};

struct Verdict {
  /// kFail as soon as one criterion fails; kPass when the contrast response and all others that
  /// apply are within their limits; else kNotApplicable. So a gray scale on which the profile has
  /// no limit for the target's function, a canceled and a failed run are never a pass.
  Outcome outcome = Outcome::kNotApplicable;
  std::string reason;  ///< one sentence for people
  const LimitsProfile* profile = nullptr;
  std::vector<Criterion> criteria;  ///< every quantity, in the order of Quantity
};

/// Judges by the profile that the record names; an unknown or empty name judges nothing.
Verdict judge(const RunRecord& record, const Evaluation& evaluation);

/// For people: "Contrast response, largest deviation".
std::string_view nameOf(Quantity quantity);

/// "3.41 %", "416.8", "0.0021", "250.13 cd/m²": as reports and tables show a quantity's value.
std::string formatValue(Quantity quantity, double value);

/// "≤ 10 %", "≥ 250".
std::string formatLimit(const Limit& limit);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_METRICS_VERDICT_H_
