// SPDX-License-Identifier: MIT
#include "display/patch_window.h"

#include "commands/commands.h"

namespace kovctl {

// For this program itself: an empty group keeps it out of the help.
void addPatchWindowCommand(CLI::App& program, Context& context) {
  CLI::App* const command = program.add_subcommand("patch-window")->group("");
  const auto choice = std::make_shared<std::string>();
  const auto display = std::make_shared<int>();
  command->add_option("CHOICE", *choice)->required();
  command->add_option("DISPLAY", *display)->required();
  command->callback([&context, choice, display] {
    context.command = [choice, display] { return runPatchWindow(*choice, *display); };
  });
}

}  // namespace kovctl
