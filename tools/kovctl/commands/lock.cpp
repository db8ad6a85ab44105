// SPDX-License-Identifier: MIT
#include "commands/commands.h"
#include "failure.h"
#include "monitors/found_monitors.h"
#include "monitors/run_lock.h"

namespace kovctl {
namespace {

ExitCode lockKeys(Context& context, const std::string& wanted, bool on) {
  const ChosenMonitor chosen = chooseMonitor(context, wanted);
  const RunLock lock(chosen.name);
  if (!chosen.monitor.isKeyLockSupported()) {
    throw Failure(ExitCode::kUsage, "the keys of " + chosen.name.text() + " cannot be locked");
  }
  chosen.monitor.setKeyLockState(on ? OmCtrlKeyLockLocked : OmCtrlKeyLockUnlocked);
  const bool now = chosen.monitor.getKeyLockState() == OmCtrlKeyLockLocked;
  const std::string state = now ? "locked" : "unlocked";
  if (now != on) {
    throw Failure(ExitCode::kCommunication,
                  "the keys of " + chosen.name.text() + " are still " + state);
  }
  context.out().printLine(chosen.name.text() + ": keys " + state);
  Json document = documentOf("lock");
  document["monitor"] = chosen.name.text();
  document["keys"] = state;
  context.out().document(document);
  return ExitCode::kOk;
}

}  // namespace

void addLockCommand(CLI::App& program, Context& context) {
  CLI::App* const command = program.add_subcommand("lock", "Lock or unlock the keys of a monitor");
  const auto wanted = std::make_shared<std::string>();
  const auto state = std::make_shared<std::string>();
  addMonitorOption(*command, *wanted);
  command->add_option("STATE", *state, "on or off")
      ->required()
      ->check(CLI::IsMember({"on", "off"}));
  command->callback([&context, wanted, state] {
    context.command = [&context, wanted, state] {
      return lockKeys(context, *wanted, *state == "on");
    };
  });
}

}  // namespace kovctl
