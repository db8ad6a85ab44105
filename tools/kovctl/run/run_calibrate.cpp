// SPDX-License-Identifier: MIT
#include "cli/early_interrupt.h"
#include "failure.h"
#include "metrics/limits.h"
#include "run/calibration.h"
#include "run/measuring_station.h"
#include "run/run.h"
#include "run/run_files.h"
#include "target/target_request.h"

namespace kovctl {

void checkLimits(const RunOptions& options) {
  if (options.limits == "none" || findLimits(options.limits) != nullptr) return;
  std::vector<std::string> names;
  for (const LimitsProfile& profile : limitsProfiles()) {
    names.push_back(std::string(profile.name) + "  " + std::string(profile.title));
  }
  names.push_back("none  nothing is judged");
  throw Failure(ExitCode::kUsage, "no limits are called \"" + options.limits + "\"; there are",
                names);
}

ExitCode calibrate(Context& context, const RunOptions& options) {
  checkLimits(options);
  const TargetRequest request = makeTarget(options.target);
  chooseInstrument(options.instrument, options.screen);
  checkRunFiles(options);
  std::optional<EarlyInterrupt> early(context);
  const ChosenMonitor chosen = chooseMonitor(context, options.monitor);
  early.reset();
  throwIfInterrupted();
  Calibration calibration(context, options, request, chosen);
  return calibration.perform();
}

}  // namespace kovctl
