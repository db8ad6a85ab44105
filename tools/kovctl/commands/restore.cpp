// SPDX-License-Identifier: MIT
#include <fmt/format.h>

#include "cli/early_interrupt.h"
#include "commands/commands.h"
#include "failure.h"
#include "monitors/found_monitors.h"
#include "monitors/mode_keeper.h"
#include "monitors/mode_note.h"
#include "monitors/run_lock.h"

namespace kovctl {
namespace {

// What was asked for, what a killed run has left, or the active table once more.
unsigned wantedMode(const ChosenMonitor& chosen, std::optional<int> lut) {
  if (lut) return static_cast<unsigned>(*lut);
  return ModeNote::read(chosen.name).value_or(chosen.monitor.getCalModeValue());
}

ExitCode restore(Context& context, const std::string& wanted, std::optional<int> lut) {
  std::optional<EarlyInterrupt> early(context);
  const ChosenMonitor chosen = chooseMonitor(context, wanted);
  early.reset();
  throwIfInterrupted();
  const RunLock lock(chosen.name);
  const unsigned before = chosen.monitor.getCalModeValue();
  const unsigned mode = wantedMode(chosen, lut);
  const ModeResult result = activateMode(chosen.monitor, mode);
  if (result.noSuchTable && lut) throw Failure(ExitCode::kUsage, result.sentence);
  if (result.restored) ModeNote::remove(chosen.name);
  const std::string sentence = chosen.name.text() + ": " + result.sentence;
  if (result.restored) {
    context.out().printLine(sentence);
  } else {
    context.out().error(sentence);
  }
  Json document = documentOf("restore");
  document["monitor"] = chosen.name.text();
  document["lutBefore"] = before;
  document["lut"] = mode;
  document["restored"] = result.restored;
  document["state"] = result.sentence;
  context.out().document(document);
  return result.restored ? ExitCode::kOk : ExitCode::kRestoreFailed;
}

}  // namespace

void addRestoreCommand(CLI::App& program, Context& context) {
  CLI::App* const command =
      program.add_subcommand("restore", "Put back the look-up table that was active");
  command->footer(
      "The table given, else the one that was active before a run that was killed, else the\n"
      "active one again. Which one is active is read back from the monitor.");
  const auto wanted = std::make_shared<std::string>();
  const auto lut = std::make_shared<std::optional<int>>();
  addMonitorOption(*command, *wanted);
  command->add_option("--lut", *lut, "Look-up table, counted from 0")
      ->type_name("N")
      ->check(CLI::Range(0, 65534));
  command->callback([&context, wanted, lut] {
    context.command = [&context, wanted, lut] { return restore(context, *wanted, *lut); };
  });
}

}  // namespace kovctl
