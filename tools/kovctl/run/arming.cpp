// SPDX-License-Identifier: MIT
#include "run/arming.h"

#include <fmt/format.h>

namespace kovctl {

// Kept: a warning and no refusal. A home that cannot be written must not leave a monitor
// uncalibrated; only what becomes of a run that is killed depends on it.
void armRun(Context& context, RunRecord& record, ModeKeeper& keeper, const RunLock& lock) {
  auto problem = keeper.arm();
  if (!problem) problem = lock.problem();
  if (!problem) return;
  const std::string sentence = fmt::format(
      "No note of this run can be kept ({}): should it be killed, nothing will tell that look-up "
      "table {} was active before, and other runs may not be kept away from the monitor.",
      *problem, keeper.mode());
  // Now, too: one that is killed does not come to the end, where warnings are said.
  context.out().warn(sentence);
  record.warnings.push_back(sentence);
}

}  // namespace kovctl
