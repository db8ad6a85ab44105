// SPDX-License-Identifier: MIT
#include <fmt/format.h>

#include "metrics/target_curve.h"
#include "output/table.h"
#include "record/run_record_json.h"
#include "run/measurements.h"
#include "run/run.h"
#include "run/run_end.h"
#include "target/target_request.h"

namespace kovctl {
namespace {

// Where the target leaves the black to the panel, any serves to show the curve.
constexpr double kAssumedContrast = 1000.0;

std::vector<int> calibrationLevels(int count) {
  if (count < 2) return {};
  std::vector<int> levels;
  for (int i = 0; i < count; ++i) {
    levels.push_back(static_cast<int>((255.0 * i) / (count - 1) + 0.5));
  }
  return levels;
}

std::string joined(const std::vector<int>& levels) {
  std::string text;
  for (const int level : levels) text += (text.empty() ? "" : " ") + std::to_string(level);
  return text;
}

}  // namespace

ExitCode dryRun(Context& context, const RunOptions& options) {
  checkLimits(options);
  const TargetRequest request = makeTarget(options.target);
  const TargetInfo& target = request.target;
  const double black = target.useMeasuredLmin ? target.lmax / kAssumedContrast : target.lmin;
  const auto curve = TargetCurve::of(target, black, target.lmax);
  const std::vector<int> gray = calibrationLevels(target.levels);
  const std::vector<int> check = checkLevels(options.checkPoints);

  Table table({{"Level", Table::Align::kRight}, {"cd/m²", Table::Align::kRight}});
  Json points = Json::array();
  for (const int level : checkLevels(18)) {
    if (!curve) break;
    const double luminance = curve->luminance(level / 255.0);
    table.add({std::to_string(level), fmt::format("{:.4f}", luminance)});
    points.push_back({{"level", level}, {"luminance", luminance}});
  }
  Console& console = context.out();
  console.print("Target: " + describe(target) + "\n");
  if (target.useMeasuredLmin && curve) {
    console.print(
        fmt::format("The curve is drawn for a black of {:g} cd/m²; the measured one "
                    "takes its place.\n",
                    black));
  }
  if (curve) console.print(table.text());
  console.print(
      fmt::format("Calibration measures: warm-up, black, white, primaries, {} gray levels "
                  "{}\n",
                  target.levels == 0 ? "the library's choice of" : std::to_string(target.levels),
                  joined(gray)));
  console.print(fmt::format("Check measures {} gray levels {}\n", check.size(), joined(check)));
  console.print("Limits: " + options.limits + "\n");

  Json document = documentOf("plan");
  document["target"] = describe(target);
  document["assumedBlack"] = target.useMeasuredLmin;
  document["lmax"] = target.lmax;
  document["lmin"] = black;
  document["curve"] = points;
  document["grayLevels"] = gray;
  document["checkLevels"] = check;
  document["limits"] = options.limits;
  console.document(document);
  return ExitCode::kOk;
}

}  // namespace kovctl
