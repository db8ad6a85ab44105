// SPDX-License-Identifier: MIT
#include <fmt/format.h>

#include "output/table.h"
#include "record/run_record_json.h"
#include "run/measurements.h"
#include "run/measuring_station.h"
#include "run/run.h"
#include "run/run_end.h"
#include "target/target_request.h"

namespace kovctl {
namespace {

// What the simulated library measures; another one may measure otherwise and does not tell.
constexpr int kLibrarysLevels = 52;
constexpr int kFewestWarmUps = 2;
constexpr int kRepeats = 3;
constexpr int kPrimaries = 3;
constexpr int kBacklightSettings = 3;
constexpr int kVerificationLevels = 18;

/// Patches that are measured one after the other.
struct PlannedPatches {
  PatchRole role;
  std::string what;
  int count;
  std::vector<int> levels;
  bool isColorOnly = false;
};

std::vector<PlannedPatches> plannedPatches(const TargetRequest& request, int checkPoints) {
  const int levels = request.target.levels == 0 ? kLibrarysLevels : request.target.levels;
  std::vector<PlannedPatches> plan{
      {PatchRole::kWarmUp, "white until the panel is warm, at least", kFewestWarmUps, {255}},
      {PatchRole::kBlack, "black, repeated", kRepeats, {0}},
      {PatchRole::kWhite, "white, repeated", kRepeats, {255}},
      {PatchRole::kPrimary, "primaries, of a color monitor only", kPrimaries, {}, true},
      {PatchRole::kGray, "gray levels of the panel as it is", levels, evenLevels(levels)}};
  if (request.measureBacklightResponse) {
    plan.push_back({PatchRole::kOther, "white at other backlights", kBacklightSettings, {255}});
  }
  plan.push_back({PatchRole::kLibraryVerify, "gray levels, by the library, to verify",
                  kVerificationLevels, evenLevels(kVerificationLevels)});
  if (checkPoints > 0) {
    plan.push_back({PatchRole::kVerify, "gray levels of the independent check", checkPoints,
                    evenLevels(checkPoints)});
  }
  return plan;
}

std::string joined(const std::vector<int>& levels) {
  std::string text;
  for (const int level : levels) text += (text.empty() ? "" : " ") + std::to_string(level);
  return text;
}

// The curve for people, and its points for programs.
Json sayCurve(Console& console, const PlannedCurve& plan) {
  Json points = Json::array();
  if (!plan.curve) return points;
  if (plan.isWhiteAssumed || plan.isBlackAssumed) {
    console.print(
        fmt::format("The curve is drawn from {:g} to {:g} cd/m²; what is measured takes the place "
                    "of the panel's own {}.\n",
                    plan.black, plan.white,
                    !plan.isWhiteAssumed   ? "black"
                    : !plan.isBlackAssumed ? "white"
                                           : "black and white"));
  }
  Table table({{"Level", Table::Align::kRight}, {"cd/m²", Table::Align::kRight}});
  for (const int level : evenLevels(kDecidingPoints)) {
    const double luminance = plan.curve->luminance(level / 255.0);
    table.add({std::to_string(level), fmt::format("{:.4f}", luminance)});
    points.push_back({{"level", level}, {"luminance", luminance}});
  }
  console.print(table.text());
  return points;
}

Json sayPatches(Console& console, const std::vector<PlannedPatches>& plan, int& total) {
  Table table({{"Patches", Table::Align::kRight}, {"What"}, {"Levels"}});
  Json patches = Json::array();
  for (const PlannedPatches& part : plan) {
    table.add({std::to_string(part.count), part.what, joined(part.levels)});
    patches.push_back({{"role", nameOf(part.role)},
                       {"what", part.what},
                       {"count", part.count},
                       {"levels", part.levels},
                       {"colorOnly", part.isColorOnly}});
    total += part.count;
  }
  table.add({std::to_string(total), "in all, on a color monitor, at least", ""});
  console.print(table.text());
  return patches;
}

}  // namespace

ExitCode dryRun(Context& context, const RunOptions& options) {
  checkLimits(options);
  chooseInstrument(options.instrument, options.screen);
  const TargetRequest request = makeTarget(options.target);
  const PlannedCurve plan = plannedCurve(request.target);
  Console& console = context.out();
  console.printLine("Target: " + describe(request.target));
  Json document = documentOf("plan");
  document["target"] = describe(request.target);
  document["assumedBlack"] = plan.isBlackAssumed;
  document["assumedWhite"] = plan.isWhiteAssumed;
  document["lmax"] = plan.white;
  document["lmin"] = plan.black;
  document["curve"] = sayCurve(console, plan);
  int total = 0;
  document["patches"] = sayPatches(console, plannedPatches(request, options.checkPoints), total);
  document["total"] = total;
  document["limits"] = options.limits;
  document["monitorChecked"] = false;
  console.printLine("Limits: " + options.limits);
  console.print(
      "No monitor was looked at: whether there is one of that name, and such a look-up table, only "
      "a run tells. The patches are those of the simulated library; another may measure "
      "otherwise.\n");
  console.document(document);
  return ExitCode::kOk;
}

}  // namespace kovctl
